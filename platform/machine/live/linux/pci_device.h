#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/machine/live/hardware_names.h"

namespace machine {

/// A PCI function as the kernel lists it, with a driver or without.
struct PciDevice {
  std::filesystem::path folder;  // links resolved
  std::string address;           // 0000:00:02.0
  std::uint32_t classCode = 0;   // base class, sub class, interface: 0x030000
  std::uint32_t maker = 0;
  std::uint32_t product = 0;
  std::string driver;  // empty when none is bound

  /// On the bus of the processor itself.
  bool IsOnFirstBus() const;
};

/// The built-in functions of a base class, in the order of their addresses.
std::vector<PciDevice> ListPciDevices(std::uint32_t baseClass);

/// Whether a driver of this name only keeps its device for virtual machines.
bool IsGivenAway(const std::string& driver);

/// By the database, else by the numbers.
HardwareName NameOf(const PciDevice& device);

}  // namespace machine
