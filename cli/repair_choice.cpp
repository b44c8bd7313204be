#include "cli/repair_choice.h"

#include <cstdio>
#include <string>

#include "cli/commands.h"
#include "cli/terminal_text.h"
#include "platform/os/console.h"
#include "platform/os/input_line.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// The question goes to standard error, so that it does not mix with JSON.
os::InputEnd Ask(enmHardwareID category, std::string& answer) {
  std::fprintf(stderr, "Repair %s? [y/N] ", Printable(CaptionOf(category)).c_str());
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
      std::fputs("sysdiagnose: nothing is repaired: give --yes, or answer on a terminal\n", stderr);
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
