#include "platform/machine/live/linux/device_folder.h"

#include <algorithm>
#include <system_error>
#include <vector>

#include "platform/machine/live/linux/system_file.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kDeepest = 32;

/// The device and those that it hangs on, up to the first of its bus.
std::vector<fs::path> WayUp(const fs::path& device) {
  std::vector<fs::path> way;
  for (fs::path folder = device; way.size() < kDeepest && folder.has_relative_path() &&
                                 folder.filename() != "devices" && folder.filename() != "sys";
       folder = folder.parent_path())
    way.push_back(folder);
  return way;
}

bool IsUsbDevice(const fs::path& folder) {
  return Exists(folder / "idVendor");
}

bool IsRootHub(const fs::path& folder) {
  return folder.filename().string().starts_with("usb");
}

}  // namespace

fs::path DeviceFolder(const fs::path& link) {
  std::error_code error;
  const fs::path folder = fs::canonical(link, error);
  return error ? fs::path() : folder;
}

std::string LinkedName(const fs::path& folder, const char* link) {
  std::error_code error;
  const fs::path target = fs::read_symlink(folder / link, error);
  return error ? std::string() : target.filename().string();
}

bool IsOnUsb(const fs::path& device) {
  return std::ranges::any_of(WayUp(device), IsUsbDevice);
}

bool IsInner(const fs::path& device) {
  return std::ranges::none_of(WayUp(device), [](const fs::path& folder) {
    const std::string removable = ReadLine(folder / "removable");
    if (!IsUsbDevice(folder)) return removable == "removable";
    return !IsRootHub(folder) && removable != "fixed";
  });
}

bool IsSleeping(const fs::path& device) {
  const std::string status = ReadLine(device / "power/runtime_status");
  return status == "suspended" || status == "suspending";
}

}  // namespace machine
