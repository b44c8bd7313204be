#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace machine {

/// A device on USB, hubs included.
struct UsbDevice {
  std::filesystem::path folder;  // links resolved
  std::uint32_t maker = 0;
  std::uint32_t product = 0;
};

/// Without those that are plugged in, in the order of their ports.
std::vector<UsbDevice> ListBuiltInUsbDevices();

/// The folders of a device's interfaces.
std::vector<std::filesystem::path> InterfacesOf(const UsbDevice& device);

/// As the device itself tells, else by the database.
std::string MakerOf(const UsbDevice& device);
std::string ProductOf(const UsbDevice& device);

/// Whether a device, or one that it hangs on, was plugged in by somebody. Where the firmware does
/// not tell, it counts as built in. `device` has its links resolved.
bool IsPluggedIn(const std::filesystem::path& device);

}  // namespace machine
