#pragma once

#include <vector>

#include "platform/machine/interface/inventory.h"
#include "platform/machine/interface/parts.h"
#include "platform/machine/live/firmware.h"

namespace machine {

/// The parts that this machine is built without. A portable machine has a battery, a display, a
/// keyboard unless it is a tablet or detachable, sound, graphics and wireless; any other need have
/// none of these. What is there, what an earlier call found on this machine, and what a switch of
/// the machine is for belongs to it. Keeps what is there for later calls, in the data folder.
std::vector<Part> FindNotFitted(const FirmwareInfo& firmware, const Inventory& info);

}  // namespace machine
