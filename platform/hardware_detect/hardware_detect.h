#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/hardware_detect/detector.h"

// The fault-detection library: one class per kind of device. A test returns its result code, 0 for
// passed, and where it takes a text it writes a description there; the extra int& that some take
// is not used by this library. A repair returns its outcome. Calls may take seconds and may throw a
// standard error. A test object is for one thread at a time.
namespace HardwareDetect {

class UTIL_API CCpuTest : public Detector {
 public:
  CCpuTest();
  ~CCpuTest();
  bool IsSupportSSE();
  bool IsSupportSSE2();
  bool IsSupportSSSE3();
  bool IsSupportSSE41();
  bool IsSupportSSE42();
  std::uint32_t TestSSE(std::wstring& text);
  std::uint32_t TestSSE2(std::wstring& text);
  std::uint32_t TestSSE3(std::wstring& text);
  std::uint32_t TestSSSE3(std::wstring& text);
  std::uint32_t TestSSE41(std::wstring& text);
  std::uint32_t TestSSE42(std::wstring& text);
};

class UTIL_API CMemFaultDetect : public Detector {
 public:
  CMemFaultDetect();
  ~CMemFaultDetect();
  std::uint32_t CheckStuckAddr(std::wstring& text, int& reserved);
  std::uint32_t CheckLineSeq(std::wstring& text, int& reserved);
  std::uint32_t CheckBlockSeq(std::wstring& text, int& reserved);
  std::uint32_t CheckBit0Walk(std::wstring& text, int& reserved);
  std::uint32_t CheckRandom(std::wstring& text, int& reserved);
  std::uint32_t CheckBoard(std::wstring& text, int& reserved);
  std::uint32_t CheckArithOperation(std::wstring& text, int& reserved);
  std::uint32_t CheckLogicOperation(std::wstring& text, int& reserved);
  std::uint32_t CheckBitFlip(std::wstring& text, int& reserved);
};

class UTIL_API CVideoCardDetect : public Detector {
 public:
  CVideoCardDetect();
  ~CVideoCardDetect();
  std::uint32_t CheckDevice(std::wstring& text);
  std::uint32_t CheckDeviceStatus(std::wstring& text);
  tagHARDWARE_REPAIR_RESULT RepairVIDEOCARDProblems(std::uint32_t code);
};

class UTIL_API CAudioDetect : public Detector {
 public:
  CAudioDetect();
  ~CAudioDetect();
  static CAudioDetect* GetInstance();
  std::uint32_t CheckDevice(std::wstring& text);
  std::uint32_t CheckLoopBack(std::wstring& text, int& reserved);
  tagHARDWARE_REPAIR_RESULT RepairAudioProblem(std::uint32_t code);
};

class UTIL_API WifiFaultDetect : public Detector {
 public:
  WifiFaultDetect();
  ~WifiFaultDetect();
  static WifiFaultDetect* GetInstance();
  std::uint32_t CheckDevice(std::wstring& text);
  std::uint32_t CheckNetworkCard(std::wstring& text);
  std::uint32_t CheckWifiSwitch(std::wstring& text);
  std::uint32_t CheckWifiSignal(std::wstring& text);
  tagHARDWARE_REPAIR_RESULT RepairWifiDriver();
  tagHARDWARE_REPAIR_RESULT RepairWifiProblem(std::uint32_t code);
};

class UTIL_API CBatteryDetect : public Detector {
 public:
  CBatteryDetect();
  ~CBatteryDetect();
  std::uint32_t CheckDevice(std::wstring& text);
  std::uint32_t TestVoltage(std::wstring& text);
  std::uint32_t TestLoss(std::wstring& text);
};

class UTIL_API CKeyBoardDetect : public Detector {
 public:
  CKeyBoardDetect();
  ~CKeyBoardDetect();
  std::uint32_t DetetctFilterKey();
  std::uint32_t DetetctHotKey();
  tagHARDWARE_REPAIR_RESULT CloseFilterKey();
  tagHARDWARE_REPAIR_RESULT RepairHotkeyByReStartSevice();
};

class UTIL_API CBluetoothDetect : public Detector {
 public:
  CBluetoothDetect();
  ~CBluetoothDetect();
  bool IsSurportBt();
  std::uint32_t CheckDevice();
  std::uint32_t CheckState();
  tagHARDWARE_REPAIR_RESULT RepairBTProblems(std::uint32_t code);
};

class UTIL_API CBiometricDetect : public Detector {
 public:
  CBiometricDetect();
  ~CBiometricDetect();
  std::uint32_t CheckDevice(tagHARDWARE_DETECT_RESULT& result);
  std::uint32_t CheckFunction(tagHARDWARE_DETECT_RESULT& result);
  tagHARDWARE_REPAIR_RESULT RepairByErrorCode(std::uint32_t code);
};

/// One byte per SMART attribute of a disk, in the library's order; 0 is within limits.
struct tagHHD_DISK_SMART_INFO {
  std::uint8_t flags[24];
};
struct tagSSD_DISK_SMART_INFO {
  std::uint8_t flags[22];
};

/// Checks the disk that has this firmware revision: 1 healthy, 2 cannot be read, anything else
/// failing. Disks of one revision take their answers in disk order, one a call.
class UTIL_API CDiskFaultDetect : public Detector {
 public:
  CDiskFaultDetect();
  ~CDiskFaultDetect();
  std::uint32_t CheckHhdSmartResult(const std::wstring& firmwareRevision,
                                    tagHHD_DISK_SMART_INFO& flags, int& reserved);
  std::uint32_t CheckSsdSmartResult(const std::wstring& firmwareRevision,
                                    tagSSD_DISK_SMART_INFO& flags, int& reserved);

 private:
  machine::TestAnswer AskDisk(machine::TestCall call, const std::wstring& firmwareRevision);

  struct Turns;
  const std::unique_ptr<Turns> turns;
};

}  // namespace HardwareDetect
