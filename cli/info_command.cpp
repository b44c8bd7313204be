#include <algorithm>
#include <cstdio>
#include <exception>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "common/text.h"
#include "sysdiagnose/catalogue/information_sheet.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

void PrintJson(enmHardwareID category) {
  CollectInformation(category, [](enmHardwareID id, const tagHardwareDetailInfo& row) {
    JsonLine()
        .Add("id", static_cast<std::int64_t>(id))
        .Add("label", row.label)
        .Add("value", row.value);
    return true;
  });
}

void PrintText(enmHardwareID category) {
  std::vector<HardwareInfoRow> rows;
  const bool found = CollectInformation(category, [&rows](enmHardwareID, const auto& row) {
    rows.push_back(row);
    return true;
  });
  std::puts(Coloured(Colour::Bold, Printable(CaptionOf(category))).c_str());
  if (!found) {
    std::printf("  %s\n\n", Line(L"NOTHING_FOUND").c_str());
    return;
  }
  std::size_t labelWidth = 0;
  for (const HardwareInfoRow& row : rows) labelWidth = std::max(labelWidth, Columns(row.label));
  for (const HardwareInfoRow& row : rows) {
    if (row.label.empty())
      std::puts("");
    else
      std::printf("  %s  %s\n", Padded(row.label, labelWidth).c_str(),
                  Printable(row.value).c_str());
  }
  std::puts("");
}

// Its data cannot be read; the other categories follow.
void PrintFault(enmHardwareID category, const std::wstring& reason, bool asJson) {
  if (asJson)
    JsonLine("failed").Add("id", static_cast<std::int64_t>(category)).Add("error", reason);
  else
    std::printf("%s\n  %s\n\n", Coloured(Colour::Bold, Printable(CaptionOf(category))).c_str(),
                Line(L"UNREADABLE", {reason}).c_str());
}

}  // namespace

int RunInfo(const Arguments& arguments) {
  bool isWhole = true;
  for (const enmHardwareID category : SelectedCategories(arguments)) {
    try {
      if (arguments.json)
        PrintJson(category);
      else
        PrintText(category);
    } catch (const std::exception& error) {
      isWhole = false;
      PrintFault(category, common::Utf8ToWide(error.what()), arguments.json);
    }
  }
  return isWhole ? kAllNormal : kRunFailed;
}

}  // namespace cli
