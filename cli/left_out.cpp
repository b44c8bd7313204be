#include "cli/left_out.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/live_line.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/culture/culture.h"
#include "platform/machine/current.h"
#include "sysdiagnose/catalogue/detect_catalogue.h"

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
    names += (names.empty() ? L"" : Text(L"COMMA")) + CaptionOf(category);
  }
  if (!json && !leftOut.empty()) std::puts(Indented(names + Text(L"COLON") + reason, 0).c_str());
}

// What the machine is built without. Reads the whole machine, which takes a moment: what runs later
// has the devices' texts at hand.
std::vector<machine::Part> LookAtMachine(bool json) {
  LiveLine live;
  if (!json) live.Show(Line(L"LOOKING"));
  DetectCatalogue::Instance();
  concurrency::wait_until_idle();
  return machine::Current().NotFitted();
}

}  // namespace

std::vector<enmHardwareID> CategoriesToTest(const Arguments& arguments) {
  const std::vector<machine::Part> notFitted = LookAtMachine(arguments.json);
  std::vector<enmHardwareID> categories = SelectedCategories(arguments);
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
