#pragma once

#include <cstdint>

#include "platform/machine/live/hardware_names.h"

namespace machine {

/// The name of a device by the installed database of PCI or USB ids, that of the system root first.
/// Empty where there is none.
HardwareName PciName(std::uint32_t maker, std::uint32_t product);
HardwareName UsbName(std::uint32_t maker, std::uint32_t product);

}  // namespace machine
