#pragma once

#include <filesystem>
#include <string>

// Folders of /sys that stand for devices.
namespace machine {

/// The folder itself, links resolved. Empty when there is none.
std::filesystem::path DeviceFolder(const std::filesystem::path& link);

/// The name of what a link in the folder points at, such as "driver" or "subsystem"; empty without.
std::string LinkedName(const std::filesystem::path& folder, const char* link);

/// Whether the device hangs on USB.
bool IsOnUsb(const std::filesystem::path& device);

/// Whether the device is built in. One behind a port that devices are plugged into is not, nor one
/// on USB unless the firmware says that it is fixed. `device` has its links resolved.
bool IsInner(const std::filesystem::path& device);

/// Whether the device sleeps to save power; reading most of it would wake it.
bool IsSleeping(const std::filesystem::path& device);

}  // namespace machine
