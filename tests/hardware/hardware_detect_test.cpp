#include "platform/hardware_detect/hardware_detect.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <numeric>

#include "platform/hardware_detect/answer_observer.h"
#include "platform/machine/current.h"
#include "tests/support/fake_machine.h"
#include "tests/support/test_log.h"

namespace HardwareDetect {
namespace {

using testing::Each;
using testing::ElementsAre;

// Answers each call with its place in the table, and notes which disks the SMART tests were about.
class NotingMachine final : public machine::Machine {
 public:
  const machine::Inventory& Info() override { return info; }
  std::wstring ProductName() override { return {}; }
  machine::TestAnswer Test(machine::TestCall call, std::size_t ordinal, int disk) override {
    disks.push_back(disk);
    return {static_cast<std::uint32_t>(call), std::to_wstring(ordinal), false, {7, 8}};
  }
  bool IsSupported(machine::SupportCall call) override { return call == supported; }
  machine::RepairAnswer Repair(machine::RepairCall call, std::size_t ordinal,
                               std::uint32_t code) override {
    return {static_cast<std::uint32_t>(call) + code, true, std::to_wstring(ordinal)};
  }

  void AddDisk(const std::wstring& firmwareRevision, bool isSolidState) {
    const std::size_t disk = info.Size(machine::InfoCall::DiskIsSolidState);
    info.Set(machine::InfoCall::DiskFirmwareRevision, firmwareRevision, disk);
    info.Set(machine::InfoCall::DiskIsSolidState, isSolidState, disk);
  }

  machine::Inventory info;
  machine::SupportCall supported{};
  std::vector<int> disks;
};

class HardwareDetectTest : public testing::Test {
 protected:
  HardwareDetectTest() { machine::SetCurrent(std::unique_ptr<machine::Machine>(&hardware)); }
  ~HardwareDetectTest() override { machine::SetCurrent(nullptr); }

  NotingMachine& hardware = *new NotingMachine;  // owned as the machine in force
};

TEST_F(HardwareDetectTest, EachTestAsksForItsOwnAnswer) {
  CCpuTest cpu;
  CMemFaultDetect memory;
  CVideoCardDetect video;
  CAudioDetect audio;
  WifiFaultDetect wifi;
  CBatteryDetect battery;
  CKeyBoardDetect keyboard;
  CBluetoothDetect bluetooth;
  std::wstring text;
  int reserved = 1;
  const std::vector<std::uint32_t> codes = {
      cpu.TestSSE(text),
      cpu.TestSSE2(text),
      cpu.TestSSE3(text),
      cpu.TestSSSE3(text),
      cpu.TestSSE41(text),
      cpu.TestSSE42(text),
      memory.CheckStuckAddr(text, reserved),
      memory.CheckLineSeq(text, reserved),
      memory.CheckBlockSeq(text, reserved),
      memory.CheckBit0Walk(text, reserved),
      memory.CheckRandom(text, reserved),
      memory.CheckBoard(text, reserved),
      memory.CheckArithOperation(text, reserved),
      memory.CheckLogicOperation(text, reserved),
      memory.CheckBitFlip(text, reserved),
      video.CheckDevice(text),
      video.CheckDeviceStatus(text),
      audio.CheckDevice(text),
      audio.CheckLoopBack(text, reserved),
      wifi.CheckDevice(text),
      wifi.CheckNetworkCard(text),
      wifi.CheckWifiSwitch(text),
      wifi.CheckWifiSignal(text),
      battery.CheckDevice(text),
      battery.TestVoltage(text),
      battery.TestLoss(text),
      keyboard.DetetctFilterKey(),
      keyboard.DetetctHotKey(),
      bluetooth.CheckDevice(),
      bluetooth.CheckState(),
  };
  std::vector<std::uint32_t> inTableOrder(codes.size());
  std::iota(inTableOrder.begin(), inTableOrder.end(), 0u);
  EXPECT_EQ(codes, inTableOrder);
  EXPECT_EQ(text, L"0");
  EXPECT_THAT(hardware.disks, Each(-1));

  tagHARDWARE_DETECT_RESULT device;
  tagHARDWARE_DETECT_RESULT function;
  EXPECT_EQ(CBiometricDetect().CheckDevice(device), 30u);
  EXPECT_EQ(CBiometricDetect().CheckFunction(function), 31u);
  EXPECT_EQ(device.code, 30);
  EXPECT_EQ(function.code, 31);
  EXPECT_EQ(function.text, L"0");
  EXPECT_EQ(function.pass, 0);
}

TEST_F(HardwareDetectTest, EachSupportCheckAndRepairAsksForItsOwnAnswer) {
  using Check = std::function<bool()>;
  CCpuTest cpu;
  const Check checks[] = {
      [&] { return cpu.IsSupportSSE(); },   [&] { return cpu.IsSupportSSE2(); },
      [&] { return cpu.IsSupportSSSE3(); }, [&] { return cpu.IsSupportSSE41(); },
      [&] { return cpu.IsSupportSSE42(); }, [] { return CBluetoothDetect().IsSurportBt(); }};
  for (std::size_t asked = 0; asked < std::size(checks); ++asked) {
    for (const machine::SupportCallRow& row : machine::kSupportCalls) {
      hardware.supported = row.call;
      EXPECT_EQ(checks[asked](), asked == static_cast<std::size_t>(row.call)) << row.name;
    }
  }
  const tagHARDWARE_REPAIR_RESULT results[] = {
      WifiFaultDetect::GetInstance()->RepairWifiDriver(),
      WifiFaultDetect::GetInstance()->RepairWifiProblem(100),
      CKeyBoardDetect().RepairHotkeyByReStartSevice(),
      CKeyBoardDetect().CloseFilterKey(),
      CAudioDetect::GetInstance()->RepairAudioProblem(100),
      CBluetoothDetect().RepairBTProblems(100),
      CVideoCardDetect().RepairVIDEOCARDProblems(100),
      CBiometricDetect().RepairByErrorCode(100),
  };
  std::vector<std::int32_t> codes;
  for (const tagHARDWARE_REPAIR_RESULT& result : results) codes.push_back(result.code);
  EXPECT_THAT(codes, ElementsAre(0, 101, 2, 3, 104, 105, 106, 107));
  EXPECT_EQ(results[7].restart, 1);
  EXPECT_EQ(results[7].text, L"0");
}

TEST_F(HardwareDetectTest, EveryObjectCountsItsOwnCalls) {
  CVideoCardDetect asked;
  CVideoCardDetect other;
  std::wstring text;
  asked.CheckDevice(text);
  asked.CheckDeviceStatus(text);
  asked.CheckDevice(text);
  EXPECT_EQ(text, L"1");
  other.CheckDevice(text);
  EXPECT_EQ(text, L"0");
  asked.RepairVIDEOCARDProblems(5);
  EXPECT_EQ(asked.RepairVIDEOCARDProblems(5).text, L"1");
  EXPECT_EQ(other.RepairVIDEOCARDProblems(5).text, L"0");
}

TEST_F(HardwareDetectTest, DisksOfOneRevisionAndKindTakeTurns) {
  hardware.AddDisk(L"FW1", true);
  hardware.AddDisk(L"FW1", false);
  hardware.AddDisk(L"FW1", true);
  hardware.AddDisk(L"FW2", true);
  CDiskFaultDetect detect;
  tagSSD_DISK_SMART_INFO ssd;
  tagHHD_DISK_SMART_INFO hdd;
  int reserved = 1;
  for (const wchar_t* revision : {L"FW1", L"FW2", L"FW1", L"FW1", L"FW3"})
    detect.CheckSsdSmartResult(revision, ssd, reserved);
  for (const wchar_t* revision : {L"FW1", L"FW1", L"FW2"})
    detect.CheckHhdSmartResult(revision, hdd, reserved);
  EXPECT_THAT(hardware.disks, ElementsAre(0, 3, 2, 0, -1, 1, 1, -1));
}

TEST_F(HardwareDetectTest, FlagsThatAreNotAnsweredAreZero) {
  tagHHD_DISK_SMART_INFO flags;
  std::ranges::fill(flags.flags, std::uint8_t{0xFF});
  int reserved = 1;
  EXPECT_EQ(CDiskFaultDetect().CheckHhdSmartResult(L"FW1", flags, reserved),
            static_cast<std::uint32_t>(machine::TestCall::DiskHddSmart));
  EXPECT_EQ(flags.flags[0], 7);
  EXPECT_EQ(flags.flags[1], 8);
  EXPECT_TRUE(std::all_of(flags.flags + 2, std::end(flags.flags), [](int flag) { return !flag; }));
}

// One disk, and a memory test that meets a serial number.
class SpeakingMachine final : public FakeMachine {
 public:
  SpeakingMachine() {
    inventory.Set(machine::InfoCall::DiskFirmwareRevision, std::wstring(L"FW1"));
    inventory.Set(machine::InfoCall::DiskSerialNumber, std::wstring(L"SN-DISK-1"));
  }
  machine::TestAnswer Test(machine::TestCall call, std::size_t, int) override {
    if (call == machine::TestCall::DiskHddSmart) return {2, L"", false, {}, L"no right"};
    if (call == machine::TestCall::MemoryRandom) return {1, L"bit on SN-DISK-1", false, {}};
    return {};
  }
};

TEST(AnswerObserver, HearsTheWordsOfEachAnswerAndTheLogHidesIdentifiers) {
  machine::SetCurrent(std::make_unique<SpeakingMachine>());
  TestLog::Instance().Take();
  std::vector<std::tuple<std::string, std::wstring, std::wstring, int>> heard;
  SetAnswerObserver([&heard](const AnswerWords& words) {
    heard.emplace_back(words.call, words.text, words.notTested, words.disk);
  });
  std::wstring text;
  int reserved = 1;
  tagHHD_DISK_SMART_INFO flags;
  CMemFaultDetect().CheckRandom(text, reserved);
  CKeyBoardDetect().DetetctHotKey();
  CDiskFaultDetect().CheckHhdSmartResult(L"FW1", flags, reserved);
  SetAnswerObserver({});
  CMemFaultDetect().CheckRandom(text, reserved);
  machine::SetCurrent(nullptr);

  EXPECT_THAT(
      heard, ElementsAre(std::tuple("CMemFaultDetect::CheckRandom", L"bit on SN-DISK-1", L"", -1),
                         std::tuple("CKeyBoardDetect::DetetctHotKey", L"", L"", -1),
                         std::tuple("CDiskFaultDetect::CheckHhdSmartResult", L"", L"no right", 0)));
  const std::string log = TestLog::Instance().Take();
  EXPECT_THAT(log, testing::HasSubstr("CheckRandom, says: bit on #"));
  EXPECT_THAT(log, testing::HasSubstr("CheckHhdSmartResult, disk 0, could not be made: no right"));
  EXPECT_THAT(log, testing::Not(testing::HasSubstr("SN-DISK-1")));
  EXPECT_THAT(log, testing::Not(testing::HasSubstr("DetetctHotKey")));
}

}  // namespace
}  // namespace HardwareDetect
