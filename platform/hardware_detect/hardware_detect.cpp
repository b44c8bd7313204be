#include "platform/hardware_detect/hardware_detect.h"

#include "platform/machine/interface/machine.h"

namespace HardwareDetect {

using machine::RepairCall;
using machine::SupportCall;
using machine::TestCall;

namespace {

std::uint32_t Fill(tagHARDWARE_DETECT_RESULT& result, machine::TestAnswer answer) {
  result.code = static_cast<std::int32_t>(answer.code);
  result.text = std::move(answer.text);
  result.pass = answer.pass ? 1 : 0;
  return answer.code;
}

}  // namespace

bool CCpuTest::IsSupportSSE() {
  return IsSupported(SupportCall::Sse);
}
bool CCpuTest::IsSupportSSE2() {
  return IsSupported(SupportCall::Sse2);
}
bool CCpuTest::IsSupportSSSE3() {
  return IsSupported(SupportCall::Ssse3);
}
bool CCpuTest::IsSupportSSE41() {
  return IsSupported(SupportCall::Sse41);
}
bool CCpuTest::IsSupportSSE42() {
  return IsSupported(SupportCall::Sse42);
}
std::uint32_t CCpuTest::TestSSE(std::wstring& text) {
  return Ask(TestCall::CpuSse, text);
}
std::uint32_t CCpuTest::TestSSE2(std::wstring& text) {
  return Ask(TestCall::CpuSse2, text);
}
std::uint32_t CCpuTest::TestSSE3(std::wstring& text) {
  return Ask(TestCall::CpuSse3, text);
}
std::uint32_t CCpuTest::TestSSSE3(std::wstring& text) {
  return Ask(TestCall::CpuSsse3, text);
}
std::uint32_t CCpuTest::TestSSE41(std::wstring& text) {
  return Ask(TestCall::CpuSse41, text);
}
std::uint32_t CCpuTest::TestSSE42(std::wstring& text) {
  return Ask(TestCall::CpuSse42, text);
}

std::uint32_t CMemFaultDetect::CheckStuckAddr(std::wstring& text, int&) {
  return Ask(TestCall::MemoryStuckAddress, text);
}
std::uint32_t CMemFaultDetect::CheckLineSeq(std::wstring& text, int&) {
  return Ask(TestCall::MemoryLineSequence, text);
}
std::uint32_t CMemFaultDetect::CheckBlockSeq(std::wstring& text, int&) {
  return Ask(TestCall::MemoryBlockSequence, text);
}
std::uint32_t CMemFaultDetect::CheckBit0Walk(std::wstring& text, int&) {
  return Ask(TestCall::MemoryWalkingBit, text);
}
std::uint32_t CMemFaultDetect::CheckRandom(std::wstring& text, int&) {
  return Ask(TestCall::MemoryRandom, text);
}
std::uint32_t CMemFaultDetect::CheckBoard(std::wstring& text, int&) {
  return Ask(TestCall::MemoryCheckerboard, text);
}
std::uint32_t CMemFaultDetect::CheckArithOperation(std::wstring& text, int&) {
  return Ask(TestCall::MemoryArithmetic, text);
}
std::uint32_t CMemFaultDetect::CheckLogicOperation(std::wstring& text, int&) {
  return Ask(TestCall::MemoryLogic, text);
}
std::uint32_t CMemFaultDetect::CheckBitFlip(std::wstring& text, int&) {
  return Ask(TestCall::MemoryBitFlip, text);
}

std::uint32_t CVideoCardDetect::CheckDevice(std::wstring& text) {
  return Ask(TestCall::VideoDevice, text);
}
std::uint32_t CVideoCardDetect::CheckDeviceStatus(std::wstring& text) {
  return Ask(TestCall::VideoStatus, text);
}
tagHARDWARE_REPAIR_RESULT CVideoCardDetect::RepairVIDEOCARDProblems(std::uint32_t code) {
  return Repair(RepairCall::VideoCard, code);
}

CAudioDetect* CAudioDetect::GetInstance() {
  static CAudioDetect& instance = *new CAudioDetect;
  return &instance;
}
std::uint32_t CAudioDetect::CheckDevice(std::wstring& text) {
  return Ask(TestCall::AudioDevice, text);
}
std::uint32_t CAudioDetect::CheckLoopBack(std::wstring& text, int&) {
  return Ask(TestCall::AudioLoopBack, text);
}
tagHARDWARE_REPAIR_RESULT CAudioDetect::RepairAudioProblem(std::uint32_t code) {
  return Repair(RepairCall::Audio, code);
}

WifiFaultDetect* WifiFaultDetect::GetInstance() {
  static WifiFaultDetect& instance = *new WifiFaultDetect;
  return &instance;
}
std::uint32_t WifiFaultDetect::CheckDevice(std::wstring& text) {
  return Ask(TestCall::WifiDevice, text);
}
std::uint32_t WifiFaultDetect::CheckNetworkCard(std::wstring& text) {
  return Ask(TestCall::WifiNetworkCard, text);
}
std::uint32_t WifiFaultDetect::CheckWifiSwitch(std::wstring& text) {
  return Ask(TestCall::WifiSwitch, text);
}
std::uint32_t WifiFaultDetect::CheckWifiSignal(std::wstring& text) {
  return Ask(TestCall::WifiSignal, text);
}
tagHARDWARE_REPAIR_RESULT WifiFaultDetect::RepairWifiDriver() {
  return Repair(RepairCall::WifiDriver, 0);
}
tagHARDWARE_REPAIR_RESULT WifiFaultDetect::RepairWifiProblem(std::uint32_t code) {
  return Repair(RepairCall::WifiProblem, code);
}

std::uint32_t CBatteryDetect::CheckDevice(std::wstring& text) {
  return Ask(TestCall::BatteryDevice, text);
}
std::uint32_t CBatteryDetect::TestVoltage(std::wstring& text) {
  return Ask(TestCall::BatteryVoltage, text);
}
std::uint32_t CBatteryDetect::TestLoss(std::wstring& text) {
  return Ask(TestCall::BatteryLoss, text);
}

std::uint32_t CKeyBoardDetect::DetetctFilterKey() {
  return Ask(TestCall::KeyboardFilterKey).code;
}
std::uint32_t CKeyBoardDetect::DetetctHotKey() {
  return Ask(TestCall::KeyboardHotKey).code;
}
tagHARDWARE_REPAIR_RESULT CKeyBoardDetect::CloseFilterKey() {
  return Repair(RepairCall::FilterKey, 0);
}
tagHARDWARE_REPAIR_RESULT CKeyBoardDetect::RepairHotkeyByReStartSevice() {
  return Repair(RepairCall::Hotkey, 0);
}

bool CBluetoothDetect::IsSurportBt() {
  return IsSupported(SupportCall::Bluetooth);
}
std::uint32_t CBluetoothDetect::CheckDevice() {
  return Ask(TestCall::BluetoothDevice).code;
}
std::uint32_t CBluetoothDetect::CheckState() {
  return Ask(TestCall::BluetoothState).code;
}
tagHARDWARE_REPAIR_RESULT CBluetoothDetect::RepairBTProblems(std::uint32_t code) {
  return Repair(RepairCall::Bluetooth, code);
}

std::uint32_t CBiometricDetect::CheckDevice(tagHARDWARE_DETECT_RESULT& result) {
  return Fill(result, Ask(TestCall::BiometricDevice));
}
std::uint32_t CBiometricDetect::CheckFunction(tagHARDWARE_DETECT_RESULT& result) {
  return Fill(result, Ask(TestCall::BiometricFunction));
}
tagHARDWARE_REPAIR_RESULT CBiometricDetect::RepairByErrorCode(std::uint32_t code) {
  return Repair(RepairCall::Biometric, code);
}

}  // namespace HardwareDetect
