#include "platform/machine/live/linux/pci_device.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

#include "platform/machine/live/linux/device_folder.h"
#include "platform/machine/live/linux/hardware_database.h"
#include "platform/machine/live/linux/system_file.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

namespace fs = std::filesystem;

constexpr int kBaseClassShift = 16;

constexpr auto kKeepers = std::to_array<std::string_view>({"vfio-pci", "pci-stub", "pciback"});

}  // namespace

bool PciDevice::IsOnFirstBus() const {
  return address.find(":00:") != std::string::npos;
}

std::vector<PciDevice> ListPciDevices(std::uint32_t baseClass) {
  const fs::path parent = os::SystemPath("/sys/bus/pci/devices");
  std::vector<PciDevice> devices;
  for (const std::string& address : ListNames(parent)) {
    const std::uint32_t classCode = ReadHex(parent / address / "class").value_or(0);
    if (classCode >> kBaseClassShift != baseClass) continue;
    PciDevice device{.folder = DeviceFolder(parent / address),
                     .address = address,
                     .classCode = classCode,
                     .maker = ReadHex(parent / address / "vendor").value_or(0),
                     .product = ReadHex(parent / address / "device").value_or(0),
                     .driver = LinkedName(parent / address, "driver")};
    if (IsInner(device.folder)) devices.push_back(std::move(device));
  }
  return devices;
}

bool IsGivenAway(const std::string& driver) {
  return std::ranges::count(kKeepers, driver) > 0;
}

HardwareName NameOf(const PciDevice& device) {
  HardwareName name = PciName(device.maker, device.product);
  if (name.product.empty()) {
    std::array<char, 32> numbers{};
    std::snprintf(numbers.data(), numbers.size(), "PCI device %04x:%04x", device.maker,
                  device.product);
    name.product = numbers.data();
  }
  return name;
}

}  // namespace machine
