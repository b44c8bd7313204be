#include "cli/repair_choice.h"

#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/texts.h"
#include "common/text.h"
#include "platform/os/console.h"
#include "platform/os/input_line.h"
#include "startup/program.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// The question goes to standard error, so that it does not mix with JSON.
os::InputEnd Ask(enmHardwareID category, std::string& answer) {
  std::fputs(Line(L"ASK_REPAIR", {CaptionOf(category)}).c_str(), stderr);
  const os::InputEnd end = os::ReadInputLine(answer);
  if (end != os::InputEnd::Line) std::fputs("\n", stderr);
  return end;
}

bool IsYes(const std::string& answer) {
  return answer == "y" || answer == "Y" || answer == "yes";
}

}  // namespace

std::optional<RepairMap> ChooseRepairs(const Arguments& arguments, const RepairMap& offered) {
  if (arguments.assumeYes) return offered;
  RepairMap chosen;
  if (!os::InputIsTerminal()) {
    if (!offered.empty())
      startup::PrintError("sysdiagnose", common::WideToUtf8(Text(L"NOBODY_AGREES")));
    return chosen;
  }
  for (const auto& [category, entries] : offered) {
    std::string answer;
    if (Ask(category, answer) == os::InputEnd::Interrupt) return std::nullopt;
    if (IsYes(answer)) chosen[category] = entries;
  }
  return chosen;
}

}  // namespace cli
