#include <algorithm>
#include <cstdio>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
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
    std::puts("  nothing found\n");
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

}  // namespace

int RunInfo(const Arguments& arguments) {
  for (const enmHardwareID category : SelectedCategories(arguments)) {
    if (arguments.json)
      PrintJson(category);
    else
      PrintText(category);
  }
  return kAllNormal;
}

}  // namespace cli
