#include "platform/machine/live/linux/usb_devices.h"

#include <array>
#include <cstdio>

#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/hardware_database.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr int kDeepest = 32;

std::string Numbers(const UsbDevice& device) {
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%04x:%04x", device.maker, device.product);
  return text.data();
}

}  // namespace

std::vector<UsbDevice> ListBuiltInUsbDevices() {
  const fs::path parent = os::SystemPath("/sys/bus/usb/devices");
  std::vector<UsbDevice> devices;
  for (const std::string& name : ListNames(parent)) {
    const auto maker = ReadHex(parent / name / "idVendor");
    const auto product = ReadHex(parent / name / "idProduct");
    if (!maker || !product) continue;  // an interface
    UsbDevice device{DeviceFolder(parent / name), *maker, *product};
    if (!IsPluggedIn(device.folder)) devices.push_back(std::move(device));
  }
  return devices;
}

std::vector<fs::path> InterfacesOf(const UsbDevice& device) {
  const std::string prefix = device.folder.filename().string() + ':';
  std::vector<fs::path> interfaces;
  for (const std::string& name : ListNames(device.folder))
    if (name.starts_with(prefix)) interfaces.push_back(device.folder / name);
  return interfaces;
}

std::string MakerOf(const UsbDevice& device) {
  const std::string own = ReadLine(device.folder / "manufacturer");
  return own.empty() ? UsbName(device.maker, device.product).maker : own;
}

std::string ProductOf(const UsbDevice& device) {
  if (std::string own = ReadLine(device.folder / "product"); !own.empty()) return own;
  std::string known = UsbName(device.maker, device.product).product;
  return known.empty() ? Numbers(device) : known;
}

bool IsPluggedIn(const fs::path& device) {
  fs::path folder = device;
  for (int depth = 0; depth < kDeepest && folder.has_relative_path(); ++depth) {
    if (ReadLine(folder / "removable") == "removable") return true;
    folder = folder.parent_path();
  }
  return false;
}

}  // namespace machine
