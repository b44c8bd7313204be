#include "cli/repair_choice.h"

#include <cstdio>
#include <iostream>
#include <string>

#include "cli/commands.h"
#include "cli/terminal_text.h"
#include "platform/os/console.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

// The question goes to standard error, so that it does not mix with JSON.
bool Agrees(enmHardwareID category) {
  std::fprintf(stderr, "Repair %s? [y/N] ", Printable(CaptionOf(category)).c_str());
  std::string answer;
  return std::getline(std::cin, answer) && (answer == "y" || answer == "Y" || answer == "yes");
}

}  // namespace

RepairMap ChooseRepairs(const Arguments& arguments, const RepairMap& offered) {
  if (arguments.assumeYes) return offered;
  RepairMap chosen;
  if (!os::InputIsTerminal()) {
    if (!offered.empty())
      std::fputs("sysdiagnose: nothing is repaired: give --yes, or answer on a terminal\n", stderr);
    return chosen;
  }
  for (const auto& [category, entries] : offered)
    if (Agrees(category)) chosen[category] = entries;
  return chosen;
}

}  // namespace cli
