#include "platform/hardware_sdk/hardware_sdk.h"

#include "platform/machine/current.h"

namespace HardwareSdk {
namespace {

using machine::InfoCall;

const machine::Inventory& Info() {
  return machine::Current().Info();
}

template <typename Result>
Result Number(InfoCall call, int index = 0) {
  return static_cast<Result>(Info().Number(call, index));
}

}  // namespace

std::wstring CCpu::GetCpuName() {
  return Info().Text(InfoCall::CpuName);
}
std::wstring CCpu::GetCpuManufacturer() {
  return Info().Text(InfoCall::CpuManufacturer);
}
std::uint32_t CCpu::GetCpuCoreNumbers() {
  return Number<std::uint32_t>(InfoCall::CpuCoreNumbers);
}
std::uint32_t CCpu::GetCpuCoreThreads() {
  return Number<std::uint32_t>(InfoCall::CpuCoreThreads);
}
std::uint32_t CCpu::GetCpuExtClock() {
  return Number<std::uint32_t>(InfoCall::CpuExtClock);
}
std::uint32_t CCpu::GetL1CacheSize() {
  return Number<std::uint32_t>(InfoCall::CpuL1CacheSize);
}
std::uint32_t CCpu::GetL2CacheSize() {
  return Number<std::uint32_t>(InfoCall::CpuL2CacheSize);
}
std::uint32_t CCpu::GetL3CacheSize() {
  return Number<std::uint32_t>(InfoCall::CpuL3CacheSize);
}

std::wstring CBaseboard::GetBaseboardProduct() {
  return Info().Text(InfoCall::BaseboardProduct);
}
std::wstring CBaseboard::GetBaseboardManufacturer() {
  return Info().Text(InfoCall::BaseboardManufacturer);
}
std::wstring CBaseboard::GetBaseboardVersion() {
  return Info().Text(InfoCall::BaseboardVersion);
}
std::wstring CBaseboard::GetBaseboardSerialNumber() {
  return Info().Text(InfoCall::BaseboardSerialNumber);
}

std::uint64_t CMemory::GetTotalMemoryNums() {
  return Number<std::uint64_t>(InfoCall::MemoryTotal);
}
int CMemory::GetMemoryNums() {
  return Number<int>(InfoCall::MemoryCount);
}
std::wstring CMemory::GetPartNumberbyIndex(int slot) {
  return Info().Text(InfoCall::MemoryPartNumber, slot);
}
std::wstring CMemory::GetLocatorbyIndex(int slot) {
  return Info().Text(InfoCall::MemoryLocator, slot);
}
std::wstring CMemory::GetManufacturerbyIndex(int slot) {
  return Info().Text(InfoCall::MemoryManufacturer, slot);
}
std::uint64_t CMemory::GetCapacitybyIndex(int slot) {
  return Number<std::uint64_t>(InfoCall::MemoryCapacity, slot);
}
std::wstring CMemory::GetSerialNumberbyIndex(int slot) {
  return Info().Text(InfoCall::MemorySerialNumber, slot);
}
std::uint32_t CMemory::GetSpeedbyIndex(int slot) {
  return Number<std::uint32_t>(InfoCall::MemorySpeed, slot);
}

int CDisk::GetPhysicDiskNumbers() {
  return Number<int>(InfoCall::DiskCount);
}
std::wstring CDisk::GetCaption(int disk) {
  return Info().Text(InfoCall::DiskCaption, disk);
}
std::uint64_t CDisk::GetTotalVendorCapacity(int disk) {
  return Number<std::uint64_t>(InfoCall::DiskVendorCapacity, disk);
}
std::wstring CDisk::GetSerialNumber(int disk) {
  return Info().Text(InfoCall::DiskSerialNumber, disk);
}
std::wstring CDisk::GetFirmwareRevision(int disk) {
  return Info().Text(InfoCall::DiskFirmwareRevision, disk);
}
bool CDisk::JudgeSSd(int disk, bool& isSolidState) {
  isSolidState = Info().Flag(InfoCall::DiskIsSolidState, disk);
  return disk >= 0 && disk < GetPhysicDiskNumbers();
}

std::wstring CVediocard::GetIndependentVideoCardName() {
  return Info().Text(InfoCall::IndependentCardName);
}
std::wstring CVediocard::GetIndependentVideoCardDriverVersion() {
  return Info().Text(InfoCall::IndependentCardDriverVersion);
}
std::wstring CVediocard::GetIndependentVideoCardDriverDate() {
  return Info().Text(InfoCall::IndependentCardDriverDate);
}
std::uint64_t CVediocard::GetIndependentVedioCardMemorySize() {
  return Number<std::uint64_t>(InfoCall::IndependentCardMemorySize);
}
std::wstring CVediocard::GetInternalVideoCardName() {
  return Info().Text(InfoCall::InternalCardName);
}
std::wstring CVediocard::GetInternalVideoCardDriverVersion() {
  return Info().Text(InfoCall::InternalCardDriverVersion);
}
std::wstring CVediocard::GetInternalVideoCardDriverDate() {
  return Info().Text(InfoCall::InternalCardDriverDate);
}
std::uint64_t CVediocard::GetInternalVedioCardMemorySize() {
  return Number<std::uint64_t>(InfoCall::InternalCardMemorySize);
}
std::wstring CVediocard::GetMonitorCaption() {
  return Info().Text(InfoCall::MonitorCaption);
}
std::wstring CVediocard::GetDisplayResolution() {
  return Info().Text(InfoCall::DisplayResolution);
}
std::uint32_t CVediocard::GetRefreshRate() {
  return Number<std::uint32_t>(InfoCall::RefreshRate);
}

std::wstring CAudioCard::GetAudioCardName() {
  return Info().Text(InfoCall::AudioCardName);
}
int CAudioCard::GetAudioCardNumbers() {
  return Number<int>(InfoCall::AudioCardCount);
}
std::wstring CAudioCard::GetAudioCardNameByIndex(int card) {
  return Info().Text(InfoCall::AudioCardNameByIndex, card);
}
std::wstring CAudioCard::GetAudioCardManufacturerByIndex(int card) {
  return Info().Text(InfoCall::AudioCardManufacturer, card);
}

std::vector<int> CNetworkAdapter::GetWireLessIndex() {
  return Info().List(InfoCall::WirelessIndices);
}
std::wstring CNetworkAdapter::GetCaptionbyIndex(int adapter) {
  return Info().Text(InfoCall::AdapterCaption, adapter);
}
std::wstring CNetworkAdapter::GetManufacturerbyIndex(int adapter) {
  return Info().Text(InfoCall::AdapterManufacturer, adapter);
}
std::wstring CNetworkAdapter::GetMacAddressbyIndex(int adapter) {
  return Info().Text(InfoCall::AdapterMacAddress, adapter);
}

std::wstring CBattery::GetBatteryName() {
  return Info().Text(InfoCall::BatteryName);
}
std::uint32_t CBattery::GetBatteryDesignCapacity() {
  return Number<std::uint32_t>(InfoCall::BatteryDesignCapacity);
}
std::uint32_t CBattery::GetBatteryFullCapacity() {
  return Number<std::uint32_t>(InfoCall::BatteryFullCapacity);
}

std::wstring CKeyBoard::GetKeyBoardName() {
  return Info().Text(InfoCall::KeyboardName);
}

std::wstring CBluetooth::GetDeviceName() {
  return Info().Text(InfoCall::BluetoothName);
}

std::wstring CBiometric::GetDeviceName() {
  return Info().Text(InfoCall::BiometricName);
}
std::wstring CBiometric::GetManufacturer() {
  return Info().Text(InfoCall::BiometricManufacturer);
}

}  // namespace HardwareSdk
