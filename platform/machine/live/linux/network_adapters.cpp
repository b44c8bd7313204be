#include "platform/machine/live/linux/network_adapters.h"

#include <algorithm>

#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/hardware_database.h"
#include "platform/machine/live/linux/pci_device.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kNetworkClass = 0x02;
constexpr std::uint32_t kWirelessClasses = 0x0280;  // base class and sub class
constexpr int kSubClassShift = 8;
constexpr std::size_t kDeepest = 8;

bool IsBelow(const fs::path& folder, const fs::path& parent) {
  return (folder.string() + '/').starts_with(parent.string() + '/');
}

HardwareName NameOfUsb(const fs::path& device) {
  HardwareName name =
      UsbName(ReadHex(device / "idVendor").value_or(0), ReadHex(device / "idProduct").value_or(0));
  if (name.product.empty()) name.product = ReadLine(device / "product");
  if (name.maker.empty()) name.maker = ReadLine(device / "manufacturer");
  return name;
}

/// The name that USB gives the device or one above it; else what is known of the interface alone.
HardwareName NameOfInterface(const NetworkAdapter& adapter) {
  fs::path folder = adapter.device;
  for (std::size_t i = 0; i < kDeepest && folder.has_parent_path(); ++i) {
    if (Exists(folder / "idVendor")) return NameOfUsb(folder);
    folder = folder.parent_path();
  }
  if (adapter.driver.empty()) return {"", adapter.interface};
  return {"", adapter.driver + " (" + adapter.interface + ")"};
}

NetworkAdapter ReadInterface(const fs::path& folder, const std::string& name) {
  NetworkAdapter adapter;
  adapter.interface = name;
  adapter.radio = DeviceFolder(folder / "phy80211");
  adapter.device = DeviceFolder(folder / "device");
  if (adapter.device.empty()) adapter.device = adapter.radio;
  adapter.driver = LinkedName(adapter.device, "driver");
  adapter.address = ReadLine(folder / "address");
  adapter.isWireless = !adapter.radio.empty() || Exists(folder / "wireless");
  adapter.name = NameOfInterface(adapter);
  return adapter;
}

/// What a driver makes for a guest of the machine or a second time for the same radio is no
/// adapter.
bool IsAdapter(const NetworkAdapter& adapter, const std::vector<NetworkAdapter>& known) {
  if (adapter.device.empty() || Exists(adapter.device / "physfn")) return false;
  if (!IsInner(adapter.device)) return false;
  return adapter.radio.empty() || !std::ranges::count(known, adapter.radio, &NetworkAdapter::radio);
}

NetworkAdapter WithoutInterface(const PciDevice& device) {
  NetworkAdapter adapter;
  adapter.device = device.folder;
  adapter.driver = device.driver;
  adapter.isWireless = device.classCode >> kSubClassShift == kWirelessClasses;
  return adapter;
}

}  // namespace

std::vector<NetworkAdapter> ListNetworkAdapters() {
  const fs::path parent = os::SystemPath("/sys/class/net");
  std::vector<NetworkAdapter> adapters;
  for (const std::string& name : ListNames(parent)) {
    NetworkAdapter adapter = ReadInterface(parent / name, name);
    if (IsAdapter(adapter, adapters)) adapters.push_back(std::move(adapter));
  }
  for (const PciDevice& device : ListPciDevices(kNetworkClass)) {
    if (IsGivenAway(device.driver) || Exists(device.folder / "physfn")) continue;
    auto owner = std::ranges::find_if(adapters, [&](const NetworkAdapter& adapter) {
      return IsBelow(adapter.device, device.folder);
    });
    if (owner == adapters.end()) owner = adapters.insert(owner, WithoutInterface(device));
    owner->name = NameOf(device);
  }
  return adapters;
}

}  // namespace machine
