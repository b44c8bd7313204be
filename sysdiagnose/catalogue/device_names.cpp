#include "sysdiagnose/catalogue/device_names.h"

#include <array>

#include "sysdiagnose/catalogue/sizes.h"

namespace orv::sysdiagnose {
namespace {

std::wstring TotalMemory(HardwareInfoSource& source) {
  return std::to_wstring(GigabytesOf(source.memory.GetTotalMemoryNums()));
}

// A disk without a capacity adds nothing, so that a last one leaves the "+" before it standing.
std::wstring DiskCapacities(HardwareInfoSource& source) {
  std::wstring text;
  const int count = source.disk.GetPhysicDiskNumbers();
  for (int i = 0; i < count; ++i) {
    const std::wstring capacity = DiskCapacityText(source.disk.GetTotalVendorCapacity(i));
    if (capacity.empty()) continue;
    text += capacity;
    if (i != count - 1) text += L"+";
  }
  return text;
}

std::wstring VideoCard(HardwareInfoSource& source) {
  std::wstring name = source.videoCard.GetIndependentVideoCardName();
  return name.empty() ? source.videoCard.GetInternalVideoCardName() : name;
}

std::wstring FirstWirelessAdapter(HardwareInfoSource& source) {
  const std::vector<int> indices = source.networkAdapter.GetWireLessIndex();
  return indices.empty() ? std::wstring()
                         : source.networkAdapter.GetCaptionbyIndex(indices.front());
}

using Source = HardwareInfoSource;
using NameFunction = std::wstring (*)(Source&);

// By category id.
constexpr auto kNames = std::to_array<NameFunction>({
    [](Source& s) { return s.audioCard.GetAudioCardName(); },
    [](Source& s) { return s.baseboard.GetBaseboardProduct(); },
    [](Source& s) { return s.bluetooth.GetDeviceName(); },
    &FirstWirelessAdapter,
    [](Source& s) { return s.cpu.GetCpuName(); },
    &TotalMemory,
    &DiskCapacities,
    &VideoCard,
    [](Source& s) { return s.videoCard.GetMonitorCaption(); },
    [](Source& s) { return s.battery.GetBatteryName(); },
    [](Source& s) { return s.keyboard.GetKeyBoardName(); },
    [](Source& s) { return s.biometric.GetDeviceName(); },
});
static_assert(kNames.size() == kHardwareIdCount);

}  // namespace

bool DeviceName(enmHardwareID category, HardwareInfoSource& source, std::wstring& name) {
  name = IsCategory(category) ? kNames[static_cast<std::size_t>(category)](source) : L"";
  return !name.empty();
}

DeviceTexts ReadDeviceTexts(enmHardwareID category, HardwareInfoSource& source) {
  std::wstring name;
  DeviceName(category, source, name);
  if (category == enmHardwareID::Memory)
    return {source.memory.GetPartNumberbyIndex(0), name + L"GB"};
  if (category == enmHardwareID::Disk) return {name, source.disk.GetCaption(0)};
  return {name, name};
}

}  // namespace orv::sysdiagnose
