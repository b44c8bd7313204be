#pragma once

#include <string>

#include "platform/machine/machine_files/recorded_machine.h"

namespace machine {

/// The text of a machine file that gives these answers, as short as it can be. Delays are left
/// out.
std::string WriteMachineFile(const Recording& recording);

}  // namespace machine
