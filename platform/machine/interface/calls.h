#pragma once

#include <array>
#include <cstddef>
#include <string_view>

// Every call that the hardware libraries answer, by the libraries' own names. Machine files use
// these names as keys.
namespace machine {

enum class InfoShape { Text, Number, Flag, List };

/// Calls of the information classes. Numbers in the library's units: memory in megabytes, disks in
/// vendor gigabytes, caches in kilobytes, clocks in megahertz, batteries in milliwatt-hours.
enum class InfoCall {
  CpuName,
  CpuManufacturer,
  CpuCoreNumbers,
  CpuCoreThreads,
  CpuExtClock,
  CpuL1CacheSize,
  CpuL2CacheSize,
  CpuL3CacheSize,
  BaseboardProduct,
  BaseboardManufacturer,
  BaseboardVersion,
  BaseboardSerialNumber,
  MemoryTotal,
  MemoryCount,
  MemoryPartNumber,
  MemoryLocator,
  MemoryManufacturer,
  MemoryCapacity,
  MemorySerialNumber,
  MemorySpeed,
  DiskCount,
  DiskCaption,
  DiskVendorCapacity,
  DiskSerialNumber,
  DiskFirmwareRevision,
  DiskIsSolidState,
  IndependentCardName,
  IndependentCardDriverVersion,
  IndependentCardDriverDate,
  IndependentCardMemorySize,
  InternalCardName,
  InternalCardDriverVersion,
  InternalCardDriverDate,
  InternalCardMemorySize,
  MonitorCaption,
  DisplayResolution,
  RefreshRate,
  AudioCardName,
  AudioCardCount,
  AudioCardNameByIndex,
  AudioCardManufacturer,
  WirelessIndices,
  AdapterCaption,
  AdapterManufacturer,
  AdapterMacAddress,
  BatteryName,
  BatteryDesignCapacity,
  BatteryFullCapacity,
  KeyboardName,
  BluetoothName,
  BiometricName,
  BiometricManufacturer,
  Count
};

struct InfoCallRow {
  InfoCall call;
  std::string_view className;
  std::string_view method;
  InfoShape shape;
  bool indexed;
  bool isCount = false;  // follows from the longest array of the class unless given
};

inline constexpr auto kInfoCalls = std::to_array<InfoCallRow>({
    {InfoCall::CpuName, "CCpu", "GetCpuName", InfoShape::Text, false},
    {InfoCall::CpuManufacturer, "CCpu", "GetCpuManufacturer", InfoShape::Text, false},
    {InfoCall::CpuCoreNumbers, "CCpu", "GetCpuCoreNumbers", InfoShape::Number, false},
    {InfoCall::CpuCoreThreads, "CCpu", "GetCpuCoreThreads", InfoShape::Number, false},
    {InfoCall::CpuExtClock, "CCpu", "GetCpuExtClock", InfoShape::Number, false},
    {InfoCall::CpuL1CacheSize, "CCpu", "GetL1CacheSize", InfoShape::Number, false},
    {InfoCall::CpuL2CacheSize, "CCpu", "GetL2CacheSize", InfoShape::Number, false},
    {InfoCall::CpuL3CacheSize, "CCpu", "GetL3CacheSize", InfoShape::Number, false},
    {InfoCall::BaseboardProduct, "CBaseboard", "GetBaseboardProduct", InfoShape::Text, false},
    {InfoCall::BaseboardManufacturer, "CBaseboard", "GetBaseboardManufacturer", InfoShape::Text,
     false},
    {InfoCall::BaseboardVersion, "CBaseboard", "GetBaseboardVersion", InfoShape::Text, false},
    {InfoCall::BaseboardSerialNumber, "CBaseboard", "GetBaseboardSerialNumber", InfoShape::Text,
     false},
    {InfoCall::MemoryTotal, "CMemory", "GetTotalMemoryNums", InfoShape::Number, false},
    {InfoCall::MemoryCount, "CMemory", "GetMemoryNums", InfoShape::Number, false, true},
    {InfoCall::MemoryPartNumber, "CMemory", "GetPartNumberbyIndex", InfoShape::Text, true},
    {InfoCall::MemoryLocator, "CMemory", "GetLocatorbyIndex", InfoShape::Text, true},
    {InfoCall::MemoryManufacturer, "CMemory", "GetManufacturerbyIndex", InfoShape::Text, true},
    {InfoCall::MemoryCapacity, "CMemory", "GetCapacitybyIndex", InfoShape::Number, true},
    {InfoCall::MemorySerialNumber, "CMemory", "GetSerialNumberbyIndex", InfoShape::Text, true},
    {InfoCall::MemorySpeed, "CMemory", "GetSpeedbyIndex", InfoShape::Number, true},
    {InfoCall::DiskCount, "CDisk", "GetPhysicDiskNumbers", InfoShape::Number, false, true},
    {InfoCall::DiskCaption, "CDisk", "GetCaption", InfoShape::Text, true},
    {InfoCall::DiskVendorCapacity, "CDisk", "GetTotalVendorCapacity", InfoShape::Number, true},
    {InfoCall::DiskSerialNumber, "CDisk", "GetSerialNumber", InfoShape::Text, true},
    {InfoCall::DiskFirmwareRevision, "CDisk", "GetFirmwareRevision", InfoShape::Text, true},
    {InfoCall::DiskIsSolidState, "CDisk", "JudgeSSd", InfoShape::Flag, true},
    {InfoCall::IndependentCardName, "CVediocard", "GetIndependentVideoCardName", InfoShape::Text,
     false},
    {InfoCall::IndependentCardDriverVersion, "CVediocard", "GetIndependentVideoCardDriverVersion",
     InfoShape::Text, false},
    {InfoCall::IndependentCardDriverDate, "CVediocard", "GetIndependentVideoCardDriverDate",
     InfoShape::Text, false},
    {InfoCall::IndependentCardMemorySize, "CVediocard", "GetIndependentVedioCardMemorySize",
     InfoShape::Number, false},
    {InfoCall::InternalCardName, "CVediocard", "GetInternalVideoCardName", InfoShape::Text, false},
    {InfoCall::InternalCardDriverVersion, "CVediocard", "GetInternalVideoCardDriverVersion",
     InfoShape::Text, false},
    {InfoCall::InternalCardDriverDate, "CVediocard", "GetInternalVideoCardDriverDate",
     InfoShape::Text, false},
    {InfoCall::InternalCardMemorySize, "CVediocard", "GetInternalVedioCardMemorySize",
     InfoShape::Number, false},
    {InfoCall::MonitorCaption, "CVediocard", "GetMonitorCaption", InfoShape::Text, false},
    {InfoCall::DisplayResolution, "CVediocard", "GetDisplayResolution", InfoShape::Text, false},
    {InfoCall::RefreshRate, "CVediocard", "GetRefreshRate", InfoShape::Number, false},
    {InfoCall::AudioCardName, "CAudioCard", "GetAudioCardName", InfoShape::Text, false},
    {InfoCall::AudioCardCount, "CAudioCard", "GetAudioCardNumbers", InfoShape::Number, false, true},
    {InfoCall::AudioCardNameByIndex, "CAudioCard", "GetAudioCardNameByIndex", InfoShape::Text,
     true},
    {InfoCall::AudioCardManufacturer, "CAudioCard", "GetAudioCardManufacturerByIndex",
     InfoShape::Text, true},
    {InfoCall::WirelessIndices, "CNetworkAdapter", "GetWireLessIndex", InfoShape::List, false},
    {InfoCall::AdapterCaption, "CNetworkAdapter", "GetCaptionbyIndex", InfoShape::Text, true},
    {InfoCall::AdapterManufacturer, "CNetworkAdapter", "GetManufacturerbyIndex", InfoShape::Text,
     true},
    {InfoCall::AdapterMacAddress, "CNetworkAdapter", "GetMacAddressbyIndex", InfoShape::Text, true},
    {InfoCall::BatteryName, "CBattery", "GetBatteryName", InfoShape::Text, false},
    {InfoCall::BatteryDesignCapacity, "CBattery", "GetBatteryDesignCapacity", InfoShape::Number,
     false},
    {InfoCall::BatteryFullCapacity, "CBattery", "GetBatteryFullCapacity", InfoShape::Number, false},
    {InfoCall::KeyboardName, "CKeyBoard", "GetKeyBoardName", InfoShape::Text, false},
    {InfoCall::BluetoothName, "CBluetooth", "GetDeviceName", InfoShape::Text, false},
    {InfoCall::BiometricName, "CBiometric", "GetDeviceName", InfoShape::Text, false},
    {InfoCall::BiometricManufacturer, "CBiometric", "GetManufacturer", InfoShape::Text, false},
});

/// Tests of the detector classes.
enum class TestCall {
  CpuSse,
  CpuSse2,
  CpuSse3,
  CpuSsse3,
  CpuSse41,
  CpuSse42,
  MemoryStuckAddress,
  MemoryLineSequence,
  MemoryBlockSequence,
  MemoryWalkingBit,
  MemoryRandom,
  MemoryCheckerboard,
  MemoryArithmetic,
  MemoryLogic,
  MemoryBitFlip,
  VideoDevice,
  VideoStatus,
  AudioDevice,
  AudioLoopBack,
  WifiDevice,
  WifiNetworkCard,
  WifiSwitch,
  WifiSignal,
  BatteryDevice,
  BatteryVoltage,
  BatteryLoss,
  KeyboardFilterKey,
  KeyboardHotKey,
  BluetoothDevice,
  BluetoothState,
  BiometricDevice,
  BiometricFunction,
  DiskHddSmart,
  DiskSsdSmart,
  Count
};

inline constexpr std::size_t kHddFlagCount = 24;
inline constexpr std::size_t kSsdFlagCount = 22;

struct TestCallRow {
  TestCall call;
  std::string_view name;
  std::size_t flagCount = 0;  // SMART attributes that the answer carries
};

inline constexpr auto kTestCalls = std::to_array<TestCallRow>({
    {TestCall::CpuSse, "CCpuTest::TestSSE"},
    {TestCall::CpuSse2, "CCpuTest::TestSSE2"},
    {TestCall::CpuSse3, "CCpuTest::TestSSE3"},
    {TestCall::CpuSsse3, "CCpuTest::TestSSSE3"},
    {TestCall::CpuSse41, "CCpuTest::TestSSE41"},
    {TestCall::CpuSse42, "CCpuTest::TestSSE42"},
    {TestCall::MemoryStuckAddress, "CMemFaultDetect::CheckStuckAddr"},
    {TestCall::MemoryLineSequence, "CMemFaultDetect::CheckLineSeq"},
    {TestCall::MemoryBlockSequence, "CMemFaultDetect::CheckBlockSeq"},
    {TestCall::MemoryWalkingBit, "CMemFaultDetect::CheckBit0Walk"},
    {TestCall::MemoryRandom, "CMemFaultDetect::CheckRandom"},
    {TestCall::MemoryCheckerboard, "CMemFaultDetect::CheckBoard"},
    {TestCall::MemoryArithmetic, "CMemFaultDetect::CheckArithOperation"},
    {TestCall::MemoryLogic, "CMemFaultDetect::CheckLogicOperation"},
    {TestCall::MemoryBitFlip, "CMemFaultDetect::CheckBitFlip"},
    {TestCall::VideoDevice, "CVideoCardDetect::CheckDevice"},
    {TestCall::VideoStatus, "CVideoCardDetect::CheckDeviceStatus"},
    {TestCall::AudioDevice, "CAudioDetect::CheckDevice"},
    {TestCall::AudioLoopBack, "CAudioDetect::CheckLoopBack"},
    {TestCall::WifiDevice, "WifiFaultDetect::CheckDevice"},
    {TestCall::WifiNetworkCard, "WifiFaultDetect::CheckNetworkCard"},
    {TestCall::WifiSwitch, "WifiFaultDetect::CheckWifiSwitch"},
    {TestCall::WifiSignal, "WifiFaultDetect::CheckWifiSignal"},
    {TestCall::BatteryDevice, "CBatteryDetect::CheckDevice"},
    {TestCall::BatteryVoltage, "CBatteryDetect::TestVoltage"},
    {TestCall::BatteryLoss, "CBatteryDetect::TestLoss"},
    {TestCall::KeyboardFilterKey, "CKeyBoardDetect::DetetctFilterKey"},
    {TestCall::KeyboardHotKey, "CKeyBoardDetect::DetetctHotKey"},
    {TestCall::BluetoothDevice, "CBluetoothDetect::CheckDevice"},
    {TestCall::BluetoothState, "CBluetoothDetect::CheckState"},
    {TestCall::BiometricDevice, "CBiometricDetect::CheckDevice"},
    {TestCall::BiometricFunction, "CBiometricDetect::CheckFunction"},
    {TestCall::DiskHddSmart, "CDiskFaultDetect::CheckHhdSmartResult", kHddFlagCount},
    {TestCall::DiskSsdSmart, "CDiskFaultDetect::CheckSsdSmartResult", kSsdFlagCount},
});

/// Support checks of the detector classes: a yes or no, asked before a test.
enum class SupportCall { Sse, Sse2, Ssse3, Sse41, Sse42, Bluetooth, Count };

struct SupportCallRow {
  SupportCall call;
  std::string_view name;
};

inline constexpr auto kSupportCalls = std::to_array<SupportCallRow>({
    {SupportCall::Sse, "CCpuTest::IsSupportSSE"},
    {SupportCall::Sse2, "CCpuTest::IsSupportSSE2"},
    {SupportCall::Ssse3, "CCpuTest::IsSupportSSSE3"},
    {SupportCall::Sse41, "CCpuTest::IsSupportSSE41"},
    {SupportCall::Sse42, "CCpuTest::IsSupportSSE42"},
    {SupportCall::Bluetooth, "CBluetoothDetect::IsSurportBt"},
});

/// Repairs of the detector classes.
enum class RepairCall {
  WifiDriver,
  WifiProblem,
  Hotkey,
  FilterKey,
  Audio,
  Bluetooth,
  VideoCard,
  Biometric,
  Count
};

struct RepairCallRow {
  RepairCall call;
  std::string_view name;
};

inline constexpr auto kRepairCalls = std::to_array<RepairCallRow>({
    {RepairCall::WifiDriver, "WifiFaultDetect::RepairWifiDriver"},
    {RepairCall::WifiProblem, "WifiFaultDetect::RepairWifiProblem"},
    {RepairCall::Hotkey, "CKeyBoardDetect::RepairHotkeyByReStartSevice"},
    {RepairCall::FilterKey, "CKeyBoardDetect::CloseFilterKey"},
    {RepairCall::Audio, "CAudioDetect::RepairAudioProblem"},
    {RepairCall::Bluetooth, "CBluetoothDetect::RepairBTProblems"},
    {RepairCall::VideoCard, "CVideoCardDetect::RepairVIDEOCARDProblems"},
    {RepairCall::Biometric, "CBiometricDetect::RepairByErrorCode"},
});

template <typename Call>
inline constexpr std::size_t kCountOf = static_cast<std::size_t>(Call::Count);

template <typename Call, std::size_t Size, typename Row>
constexpr bool InOrder(const std::array<Row, Size>& rows) {
  if (Size != kCountOf<Call>) return false;
  for (std::size_t i = 0; i < Size; ++i)
    if (rows[i].call != static_cast<Call>(i)) return false;
  return true;
}
static_assert(InOrder<InfoCall>(kInfoCalls));
static_assert(InOrder<TestCall>(kTestCalls));
static_assert(InOrder<SupportCall>(kSupportCalls));
static_assert(InOrder<RepairCall>(kRepairCalls));

}  // namespace machine
