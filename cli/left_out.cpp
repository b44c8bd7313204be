#include "cli/left_out.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "platform/duilib/culture/culture.h"
#include "platform/machine/current.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

void Tell(const std::vector<enmHardwareID>& leftOut, bool json) {
  const std::wstring reason(
      DuiLib::UICulture::GetInstance()->GetString(L"IDS_HARDWARE_DIAGNOSE_NOT_FITTED"));
  std::wstring names;
  for (const enmHardwareID category : leftOut) {
    if (json)
      JsonLine("leftOut").Add("category", static_cast<std::int64_t>(category)).Add("text", reason);
    names += (names.empty() ? L"" : L", ") + CaptionOf(category);
  }
  if (!json && !leftOut.empty())
    std::printf("%s: %s\n", Printable(names).c_str(), Printable(reason).c_str());
}

}  // namespace

std::vector<enmHardwareID> CategoriesToTest(const Arguments& arguments) {
  std::vector<enmHardwareID> categories = SelectedCategories(arguments);
  // Asked in any case: the live machine keeps what it finds.
  const std::vector<machine::Part> notFitted = machine::Current().NotFitted();
  if (HasNamedCategories(arguments)) return categories;
  const auto isFitted = [&](enmHardwareID category) {
    return std::ranges::count(notFitted, static_cast<machine::Part>(category)) == 0;
  };
  const auto leftOut = std::stable_partition(categories.begin(), categories.end(), isFitted);
  Tell({leftOut, categories.end()}, arguments.json);
  categories.erase(leftOut, categories.end());
  return categories;
}

}  // namespace cli
