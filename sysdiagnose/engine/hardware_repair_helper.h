#pragma once

#include <array>
#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "platform/hardware_detect/hardware_detect.h"

namespace orv::sysdiagnose {

/// Carries out repair commands by name. Commands of one class of devices never overlap, those of
/// different classes may run at once. Any thread.
class HardwareRepairHelper {
 public:
  /// The helper of this process, made on first use.
  static HardwareRepairHelper& Instance();

  HardwareRepairHelper();
  HardwareRepairHelper(const HardwareRepairHelper&) = delete;
  HardwareRepairHelper& operator=(const HardwareRepairHelper&) = delete;

  /// Carries out the command of exactly that name with the leading decimal number of `parameter`, 0
  /// if there is none. A name that no command has leaves `result` alone. Both texts are consumed.
  void Repair(std::wstring& command, std::wstring& parameter,
              HardwareDetect::tagHARDWARE_REPAIR_RESULT& result);

 private:
  enum Lock { Wireless, Keyboard, Audio, Bluetooth, Graphics, Fingerprint, LockCount };
  struct CommandRow;
  using Result = HardwareDetect::tagHARDWARE_REPAIR_RESULT;
  using BoundCommand = std::function<void(Result& result, const std::wstring& parameter)>;

  HardwareDetect::CKeyBoardDetect keyboard;
  HardwareDetect::CBluetoothDetect bluetooth;
  HardwareDetect::CVideoCardDetect videoCard;
  HardwareDetect::CBiometricDetect biometric;
  std::array<std::mutex, LockCount> locks;
  std::map<std::wstring, BoundCommand> commands;
};

}  // namespace orv::sysdiagnose
