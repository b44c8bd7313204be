#pragma once

#include <cstdint>

#include "platform/machine/inventory.h"

namespace machine {

/// Sets the answers about the processor: names by CPUID, cores, threads and caches by what the
/// system tells. `firmwareClockMhz` is the firmware's external clock, 0 when it gives none.
void FillProcessor(Inventory& inventory, std::uint32_t firmwareClockMhz);

}  // namespace machine
