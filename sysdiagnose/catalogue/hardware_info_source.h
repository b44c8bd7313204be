#pragma once

#include "platform/hardware_detect/hardware_detect.h"
#include "platform/hardware_sdk/hardware_sdk.h"

namespace orv::sysdiagnose {

/// The library objects that device names and information sheets are read from. Created on first
/// use, kept to the end; any thread.
struct HardwareInfoSource {
  static HardwareInfoSource& Instance();

  HardwareSdk::CCpu cpu;
  HardwareSdk::CBaseboard baseboard;
  HardwareSdk::CMemory memory;
  HardwareSdk::CDisk disk;
  HardwareSdk::CVediocard videoCard;
  HardwareSdk::CAudioCard audioCard;
  HardwareSdk::CNetworkAdapter networkAdapter;
  HardwareSdk::CBattery battery;
  HardwareSdk::CKeyBoard keyboard;
  HardwareSdk::CBluetooth bluetooth;
  HardwareSdk::CBiometric biometric;

  // Asked only whether the device is there.
  HardwareDetect::CVideoCardDetect videoCardPresence;
  HardwareDetect::CAudioDetect audioPresence;
};

}  // namespace orv::sysdiagnose
