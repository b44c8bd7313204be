#include "platform/hardware_detect/hardware_detect.h"

#include "platform/machine/interface/calls.h"

namespace HardwareDetect {

using machine::RepairCall;
using machine::SupportCall;
using machine::TestCall;

using Code = std::uint32_t;
using Text = std::wstring&;
using Result = tagHARDWARE_DETECT_RESULT&;
using Repaired = tagHARDWARE_REPAIR_RESULT;

CAudioDetect* CAudioDetect::GetInstance() {
  static CAudioDetect& instance = *new CAudioDetect;
  return &instance;
}

WifiFaultDetect* WifiFaultDetect::GetInstance() {
  static WifiFaultDetect& instance = *new WifiFaultDetect;
  return &instance;
}

// Each call of the contract and the question that it is to the machine.
// clang-format off
CCpuTest::CCpuTest() = default;
CCpuTest::~CCpuTest() = default;
bool CCpuTest::IsSupportSSE() { return IsSupported(SupportCall::Sse); }
bool CCpuTest::IsSupportSSE2() { return IsSupported(SupportCall::Sse2); }
bool CCpuTest::IsSupportSSSE3() { return IsSupported(SupportCall::Ssse3); }
bool CCpuTest::IsSupportSSE41() { return IsSupported(SupportCall::Sse41); }
bool CCpuTest::IsSupportSSE42() { return IsSupported(SupportCall::Sse42); }
Code CCpuTest::TestSSE(Text text) { return Ask(TestCall::CpuSse, text); }
Code CCpuTest::TestSSE2(Text text) { return Ask(TestCall::CpuSse2, text); }
Code CCpuTest::TestSSE3(Text text) { return Ask(TestCall::CpuSse3, text); }
Code CCpuTest::TestSSSE3(Text text) { return Ask(TestCall::CpuSsse3, text); }
Code CCpuTest::TestSSE41(Text text) { return Ask(TestCall::CpuSse41, text); }
Code CCpuTest::TestSSE42(Text text) { return Ask(TestCall::CpuSse42, text); }

CMemFaultDetect::CMemFaultDetect() = default;
CMemFaultDetect::~CMemFaultDetect() = default;
Code CMemFaultDetect::CheckStuckAddr(Text text, int&) { return Ask(TestCall::MemoryStuckAddress, text); }
Code CMemFaultDetect::CheckLineSeq(Text text, int&) { return Ask(TestCall::MemoryLineSequence, text); }
Code CMemFaultDetect::CheckBlockSeq(Text text, int&) { return Ask(TestCall::MemoryBlockSequence, text); }
Code CMemFaultDetect::CheckBit0Walk(Text text, int&) { return Ask(TestCall::MemoryWalkingBit, text); }
Code CMemFaultDetect::CheckRandom(Text text, int&) { return Ask(TestCall::MemoryRandom, text); }
Code CMemFaultDetect::CheckBoard(Text text, int&) { return Ask(TestCall::MemoryCheckerboard, text); }
Code CMemFaultDetect::CheckArithOperation(Text text, int&) { return Ask(TestCall::MemoryArithmetic, text); }
Code CMemFaultDetect::CheckLogicOperation(Text text, int&) { return Ask(TestCall::MemoryLogic, text); }
Code CMemFaultDetect::CheckBitFlip(Text text, int&) { return Ask(TestCall::MemoryBitFlip, text); }

CVideoCardDetect::CVideoCardDetect() = default;
CVideoCardDetect::~CVideoCardDetect() = default;
Code CVideoCardDetect::CheckDevice(Text text) { return Ask(TestCall::VideoDevice, text); }
Code CVideoCardDetect::CheckDeviceStatus(Text text) { return Ask(TestCall::VideoStatus, text); }
Repaired CVideoCardDetect::RepairVIDEOCARDProblems(Code code) { return Repair(RepairCall::VideoCard, code); }

CAudioDetect::CAudioDetect() = default;
CAudioDetect::~CAudioDetect() = default;
Code CAudioDetect::CheckDevice(Text text) { return Ask(TestCall::AudioDevice, text); }
Code CAudioDetect::CheckLoopBack(Text text, int&) { return Ask(TestCall::AudioLoopBack, text); }
Repaired CAudioDetect::RepairAudioProblem(Code code) { return Repair(RepairCall::Audio, code); }

WifiFaultDetect::WifiFaultDetect() = default;
WifiFaultDetect::~WifiFaultDetect() = default;
Code WifiFaultDetect::CheckDevice(Text text) { return Ask(TestCall::WifiDevice, text); }
Code WifiFaultDetect::CheckNetworkCard(Text text) { return Ask(TestCall::WifiNetworkCard, text); }
Code WifiFaultDetect::CheckWifiSwitch(Text text) { return Ask(TestCall::WifiSwitch, text); }
Code WifiFaultDetect::CheckWifiSignal(Text text) { return Ask(TestCall::WifiSignal, text); }
Repaired WifiFaultDetect::RepairWifiDriver() { return Repair(RepairCall::WifiDriver, 0); }
Repaired WifiFaultDetect::RepairWifiProblem(Code code) { return Repair(RepairCall::WifiProblem, code); }

CBatteryDetect::CBatteryDetect() = default;
CBatteryDetect::~CBatteryDetect() = default;
Code CBatteryDetect::CheckDevice(Text text) { return Ask(TestCall::BatteryDevice, text); }
Code CBatteryDetect::TestVoltage(Text text) { return Ask(TestCall::BatteryVoltage, text); }
Code CBatteryDetect::TestLoss(Text text) { return Ask(TestCall::BatteryLoss, text); }

CKeyBoardDetect::CKeyBoardDetect() = default;
CKeyBoardDetect::~CKeyBoardDetect() = default;
Code CKeyBoardDetect::DetetctFilterKey() { return Ask(TestCall::KeyboardFilterKey); }
Code CKeyBoardDetect::DetetctHotKey() { return Ask(TestCall::KeyboardHotKey); }
Repaired CKeyBoardDetect::CloseFilterKey() { return Repair(RepairCall::FilterKey, 0); }
Repaired CKeyBoardDetect::RepairHotkeyByReStartSevice() { return Repair(RepairCall::Hotkey, 0); }

CBluetoothDetect::CBluetoothDetect() = default;
CBluetoothDetect::~CBluetoothDetect() = default;
bool CBluetoothDetect::IsSurportBt() { return IsSupported(SupportCall::Bluetooth); }
Code CBluetoothDetect::CheckDevice() { return Ask(TestCall::BluetoothDevice); }
Code CBluetoothDetect::CheckState() { return Ask(TestCall::BluetoothState); }
Repaired CBluetoothDetect::RepairBTProblems(Code code) { return Repair(RepairCall::Bluetooth, code); }

CBiometricDetect::CBiometricDetect() = default;
CBiometricDetect::~CBiometricDetect() = default;
Code CBiometricDetect::CheckDevice(Result result) { return Ask(TestCall::BiometricDevice, result); }
Code CBiometricDetect::CheckFunction(Result result) { return Ask(TestCall::BiometricFunction, result); }
Repaired CBiometricDetect::RepairByErrorCode(Code code) { return Repair(RepairCall::Biometric, code); }
// clang-format on

}  // namespace HardwareDetect
