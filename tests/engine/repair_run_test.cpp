#include <gmock/gmock.h>

#include "sysdiagnose/engine/diagnose_engine.h"
#include "tests/support/fake_clock.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;
using Category = enmHardwareID;

std::string Narrow(const std::wstring& text) {
  return {text.begin(), text.end()};
}

// A detection and then the repair of all it offered, noted as short texts.
class RepairRunTest : public testing::Test {
 protected:
  void Detect(std::vector<Category> selection) {
    const auto ignore = [](auto&&...) {};
    engine.BeginDetectRun(std::move(selection), ignore, ignore, ignore, ignore, ignore, ignore);
    engine.Wait();
  }

  std::vector<std::string> Repair(RepairMap repairs) {
    RepairCallbacks callbacks;
    callbacks.categoryStart = [this](int position, Category id) {
      Note("category", position, id, "");
    };
    callbacks.repairStart = [this](int position, Category id, tagRepairItemInfo& repair) {
      Note("start", position, id, Narrow(repair.command + L" " + repair.parameter));
      if (onStart) onStart();
    };
    callbacks.repairResult = [this](int position, Category id, tagRepairItemInfo& repair,
                                    HardwareDetect::tagHARDWARE_REPAIR_RESULT& result) {
      EXPECT_FALSE(repair.command.empty());
      Note("result", position, id, std::to_string(result.code));
    };
    callbacks.categoryResult = [this](bool repaired, Category id, int position) {
      Note(repaired ? "repaired" : "faulty", position, id, "");
    };
    callbacks.cancelled = [this] { notes.emplace_back("cancelled"); };
    callbacks.finished = [this](bool all, bool restart, int firstFaulty) {
      notes.push_back("finished " + std::to_string(all) + std::to_string(restart) + " " +
                      std::to_string(firstFaulty));
    };
    engine.BeginRepairRun(std::move(repairs), std::move(callbacks),
                          [this](const std::string& error) { notes.push_back("failed " + error); });
    engine.Wait();
    return std::exchange(notes, {});
  }

  FakeClock clock{1000};
  DiagnoseEngine engine;
  std::function<void()> onStart;

 private:
  void Note(const std::string& what, int position, Category id, const std::string& more) {
    notes.push_back(what + " " + std::to_string(position) + " " +
                    std::to_string(static_cast<int>(id)) + (more.empty() ? "" : " " + more));
  }

  std::vector<std::string> notes;
};

TEST_F(RepairRunTest, RepairsWhatFailedAndCountsEachCategoryOnce) {
  const InForce inForce(R"({
      "tests": {"CVideoCardDetect::CheckDeviceStatus": 4294967292,
                "CKeyBoardDetect::DetetctFilterKey": 1, "CKeyBoardDetect::DetetctHotKey": 2},
      "repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": {"code": 0, "restart": true},
                  "CKeyBoardDetect::CloseFilterKey": 5}})");
  Detect({Category::Display, Category::GraphicsCard, Category::Keyboard});
  EXPECT_EQ(engine.Record().failCount, 2);
  EXPECT_THAT(
      Repair(engine.OfferedRepairs()),
      ElementsAre("category 1 7", "start 1 7 RepairVideoCard -4", "result 1 7 0", "repaired 1 7",
                  "category 2 10", "start 2 10 RepairFilterKey 1", "result 2 10 5",
                  "start 2 10 RepairHotkey 2", "result 2 10 0", "faulty 2 10", "finished 01 2"));
  EXPECT_EQ(engine.Record().passCount, 2);
  EXPECT_EQ(engine.Record().failCount, 1);
  EXPECT_EQ(engine.Record().results[4], kNormal);
  EXPECT_EQ(engine.Record().results[10], kAbnormal);
  EXPECT_EQ(engine.OfferedRepairs().size(), 1);  // the repaired category's are gone

  // The faulty one again.
  EXPECT_EQ(Repair(engine.OfferedRepairs()).back(), "finished 00 2");
  EXPECT_EQ(engine.Record().failCount, 1);
}

TEST_F(RepairRunTest, WithoutEntriesItFinishesAtOnce) {
  const InForce inForce;
  Detect({Category::Display});
  EXPECT_THAT(Repair({{Category::Display, {}}}), ElementsAre("finished 10 -1"));
}

TEST_F(RepairRunTest, ACancelIsHonouredBeforeTheRepairIsCalled) {
  const InForce inForce(
      R"({"tests": {"CAudioDetect::CheckDevice": 1, "CVideoCardDetect::CheckDevice": 1}})");
  Detect({Category::Audio, Category::GraphicsCard});
  const std::int64_t stored = engine.Record().secondTime;
  clock.Sleep(std::chrono::seconds(5));
  onStart = [this] { engine.CancelDetect(); };
  EXPECT_THAT(Repair(engine.OfferedRepairs()),
              ElementsAre("category 0 0", "start 0 0 RepairAudio 1", "cancelled"));
  EXPECT_GT(engine.Record().secondTime, stored);  // stored again
  EXPECT_FALSE(engine.IsRunning());
}

TEST_F(RepairRunTest, AnEmptyCallbackFailsAtOnce) {
  const InForce inForce;
  EXPECT_THROW(engine.BeginRepairRun({}, {}), std::bad_function_call);
}

TEST_F(RepairRunTest, OnlyOfferedRepairsOfFailedItemsBecomeEntries) {
  const InForce inForce(R"({"tests": {"CBiometricDetect::CheckDevice": {"code": 7, "pass": false},
      "CMemFaultDetect::CheckRandom": 3, "WifiFaultDetect::CheckWifiSignal": 8}})");
  Detect({Category::Fingerprint, Category::Memory, Category::NetworkCard});
  ASSERT_EQ(engine.OfferedRepairs().size(), 1);
  const auto& entries = engine.OfferedRepairs().at(Category::NetworkCard);
  ASSERT_EQ(entries.size(), 1);
  EXPECT_EQ(entries[0].command, L"RepairWifiProblem");
  EXPECT_EQ(entries[0].parameter, L"8");
  EXPECT_TRUE(entries[0].offered);
}

}  // namespace
}  // namespace orv::sysdiagnose
