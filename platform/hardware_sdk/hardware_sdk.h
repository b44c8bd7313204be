#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/os/export.h"

// The hardware information library. Each class answers for one kind of device; a text that the
// machine does not give is empty, a number 0, and so is every answer for an index outside. Any
// thread.
namespace HardwareSdk {

class UTIL_API CCpu {
 public:
  std::wstring GetCpuName();
  std::wstring GetCpuManufacturer();
  std::uint32_t GetCpuCoreNumbers();
  std::uint32_t GetCpuCoreThreads();
  std::uint32_t GetCpuExtClock();  // megahertz
  std::uint32_t GetL1CacheSize();  // kilobytes, all cores together
  std::uint32_t GetL2CacheSize();
  std::uint32_t GetL3CacheSize();
};

class UTIL_API CBaseboard {
 public:
  std::wstring GetBaseboardProduct();
  std::wstring GetBaseboardManufacturer();
  std::wstring GetBaseboardVersion();
  std::wstring GetBaseboardSerialNumber();
};

class UTIL_API CMemory {
 public:
  std::uint64_t GetTotalMemoryNums();  // megabytes of all modules
  int GetMemoryNums();                 // number of slots
  std::wstring GetPartNumberbyIndex(int slot);
  std::wstring GetLocatorbyIndex(int slot);
  std::wstring GetManufacturerbyIndex(int slot);
  std::uint64_t GetCapacitybyIndex(int slot);  // megabytes
  std::wstring GetSerialNumberbyIndex(int slot);
  std::uint32_t GetSpeedbyIndex(int slot);  // megahertz
};

class UTIL_API CDisk {
 public:
  int GetPhysicDiskNumbers();
  std::wstring GetCaption(int disk);
  std::uint64_t GetTotalVendorCapacity(int disk);  // gigabytes of 1,000,000,000 bytes
  std::wstring GetSerialNumber(int disk);
  std::wstring GetFirmwareRevision(int disk);

  /// Writes whether the disk is a solid-state one; returns whether there is such a disk.
  bool JudgeSSd(int disk, bool& isSolidState);
};

class UTIL_API CVediocard {
 public:
  std::wstring GetIndependentVideoCardName();
  std::wstring GetIndependentVideoCardDriverVersion();
  std::wstring GetIndependentVideoCardDriverDate();
  std::uint64_t GetIndependentVedioCardMemorySize();  // megabytes
  std::wstring GetInternalVideoCardName();
  std::wstring GetInternalVideoCardDriverVersion();
  std::wstring GetInternalVideoCardDriverDate();
  std::uint64_t GetInternalVedioCardMemorySize();  // megabytes
  std::wstring GetMonitorCaption();
  std::wstring GetDisplayResolution();
  std::uint32_t GetRefreshRate();  // hertz
};

class UTIL_API CAudioCard {
 public:
  std::wstring GetAudioCardName();
  int GetAudioCardNumbers();
  std::wstring GetAudioCardNameByIndex(int card);
  std::wstring GetAudioCardManufacturerByIndex(int card);
};

class UTIL_API CNetworkAdapter {
 public:
  std::vector<int> GetWireLessIndex();  // adapter indices of the wireless ones
  std::wstring GetCaptionbyIndex(int adapter);
  std::wstring GetManufacturerbyIndex(int adapter);
  std::wstring GetMacAddressbyIndex(int adapter);
};

class UTIL_API CBattery {
 public:
  std::wstring GetBatteryName();
  std::uint32_t GetBatteryDesignCapacity();  // milliwatt-hours
  std::uint32_t GetBatteryFullCapacity();    // milliwatt-hours
};

class UTIL_API CKeyBoard {
 public:
  std::wstring GetKeyBoardName();
};

class UTIL_API CBluetooth {
 public:
  std::wstring GetDeviceName();
};

class UTIL_API CBiometric {
 public:
  std::wstring GetDeviceName();
  std::wstring GetManufacturer();
};

}  // namespace HardwareSdk
