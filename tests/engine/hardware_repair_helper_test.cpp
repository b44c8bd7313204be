#include "sysdiagnose/engine/hardware_repair_helper.h"

#include <gmock/gmock.h>

#include <thread>

#include "platform/machine/current.h"
#include "tests/support/fake_machine.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using machine::RepairCall;

// Notes each repair and whether another of its class was under way.
class RepairedMachine final : public FakeMachine {
 public:
  machine::RepairAnswer Repair(RepairCall call, std::size_t, std::uint32_t code) override {
    const auto number = static_cast<std::size_t>(call);
    const std::size_t device = number < 2 ? 0 : number < 4 ? 1 : number;
    if (underWay[device].exchange(true)) overlapped = true;
    if (call == RepairCall::Audio && meeting != nullptr) meeting->fetch_add(1);
    if (call == RepairCall::Bluetooth && meeting != nullptr)
      while (meeting->load() == 0) std::this_thread::yield();
    std::this_thread::yield();
    underWay[device] = false;
    const std::lock_guard lock(mutex);
    codes.emplace_back(call, code);
    return {3, true, L"text"};
  }

  std::array<std::atomic<bool>, 8> underWay{};
  std::atomic<bool> overlapped = false;
  std::atomic<int>* meeting = nullptr;
  std::mutex mutex;
  std::vector<std::pair<RepairCall, std::uint32_t>> codes;
};

class RepairHelperTest : public testing::Test {
 protected:
  RepairHelperTest() {
    auto made = std::make_unique<RepairedMachine>();
    repaired = made.get();
    machine::SetCurrent(std::move(made));
  }
  ~RepairHelperTest() override { machine::SetCurrent(nullptr); }

  HardwareDetect::tagHARDWARE_REPAIR_RESULT Repair(std::wstring command, std::wstring parameter) {
    HardwareDetect::tagHARDWARE_REPAIR_RESULT result;
    helper.Repair(command, parameter, result);
    EXPECT_TRUE(command.empty() && parameter.empty());
    return result;
  }

  HardwareRepairHelper helper;
  RepairedMachine* repaired = nullptr;
};

TEST_F(RepairHelperTest, EachCommandCallsItsRepairWithTheLeadingNumber) {
  using testing::Pair;
  for (const wchar_t* command : {L"RepairWifiDriver", L"RepairHotkey", L"RepairFilterKey"})
    Repair(command, L"7");
  Repair(L"RepairWifiProblem", L"12abc");
  Repair(L"RepairAudio", L"");
  Repair(L"RepairBluetooth", L"-4");
  Repair(L"RepairVideoCard", L"abc");
  Repair(L"RepairFingerprint", L"4294967295");
  EXPECT_THAT(repaired->codes,
              testing::ElementsAre(Pair(RepairCall::WifiDriver, 0), Pair(RepairCall::Hotkey, 0),
                                   Pair(RepairCall::FilterKey, 0),
                                   Pair(RepairCall::WifiProblem, 12), Pair(RepairCall::Audio, 0),
                                   Pair(RepairCall::Bluetooth, -4), Pair(RepairCall::VideoCard, 0),
                                   Pair(RepairCall::Biometric, 4294967295)));
}

TEST_F(RepairHelperTest, AnUnknownNameLeavesTheResultAlone) {
  EXPECT_EQ(Repair(L"RepairHotKey", L"1").code, 0);
  EXPECT_TRUE(repaired->codes.empty());
  const auto result = Repair(L"RepairHotkey", L"");
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.restart, 1);
  EXPECT_EQ(result.text, L"text");
}

TEST_F(RepairHelperTest, RepairsOfOneClassNeverOverlap) {
  std::vector<std::thread> threads;
  for (const wchar_t* command :
       {L"RepairWifiDriver", L"RepairWifiProblem", L"RepairHotkey", L"RepairFilterKey"})
    threads.emplace_back([this, command] {
      for (int i = 0; i < 500; ++i) Repair(command, L"1");
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(repaired->overlapped);
}

// The one waits inside the library until the other has come there, too.
TEST_F(RepairHelperTest, RepairsOfDifferentClassesMayRunAtOnce) {
  std::atomic<int> meeting = 0;
  repaired->meeting = &meeting;
  std::thread waiting([this] { Repair(L"RepairBluetooth", L"1"); });
  Repair(L"RepairAudio", L"1");
  waiting.join();
  EXPECT_EQ(meeting, 1);
}

}  // namespace
}  // namespace orv::sysdiagnose
