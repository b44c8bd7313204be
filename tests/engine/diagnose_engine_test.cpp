#include "sysdiagnose/engine/diagnose_engine.h"

#include <gmock/gmock.h>

#include <thread>

#include "common/text.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/machine/current.h"
#include "sysdiagnose/records/history_store.h"
#include "tests/support/fake_machine.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;
using Category = enmHardwareID;

// An engine whose callbacks are noted as short texts, in order.
class Runner {
 public:
  void Begin(std::vector<Category> selection) {
    engine.BeginDetectRun(
        std::move(selection),
        [this](Category id, tagHardwareDetectInfo& info) {
          Note("start " + Name(id) + Short(info.caption));
          if (atStart) atStart(id);
        },
        [this](Category id, tagDetectItemDetail& detail) {
          Note((detail.normal ? "ok " : "bad ") + Name(id) + Short(detail.caption));
        },
        [this](Category id, const std::wstring&) { Note("unknown " + Name(id)); },
        [this](int number, Category id, tagRepairItemInfo& offer) {
          EXPECT_EQ(number, static_cast<int>(id));
          EXPECT_TRUE(offer.offered);
          Note("offer " + Name(id));
        },
        [this] { Note("cancelled"); },
        [this](int& abnormal, int& first) {
          Note("finished " + std::to_string(abnormal) + " " + std::to_string(first));
        },
        [this](const std::string& error) { Note("failed " + error); });
  }

  std::vector<std::string> Run(std::vector<Category> selection) {
    Begin(std::move(selection));
    engine.Wait();
    return std::exchange(notes, {});
  }

  std::function<void(Category)> atStart;
  std::vector<std::string> notes;
  DiagnoseEngine engine;

 private:
  static std::string Name(Category id) { return std::to_string(static_cast<int>(id)); }
  static std::string Short(const std::wstring& caption) {
    constexpr std::wstring_view kPrefix = L"IDS_HARDWARE_DIAGNOSE_";
    const std::size_t prefix = caption.starts_with(kPrefix) ? kPrefix.size() : 0;
    return " " + common::WideToUtf8(std::wstring_view(caption).substr(prefix));
  }
  void Note(std::string text) { notes.push_back(std::move(text)); }
};

int StoredRuns() {
  int runs = 0;
  LoadDailyHistory(12, [&runs](const auto& records) { runs = static_cast<int>(records.size()); });
  return runs;
}

TEST(Engine, AFailingFirstItemLeavesTheRestOutAndTellsWhy) {
  const InForce inForce(R"({"tests": {"CVideoCardDetect::CheckDevice": 9}})");
  Runner runner;
  EXPECT_THAT(runner.Run({Category::Display, Category::GraphicsCard}),
              ElementsAre("start 8 DISPLAY_FAST", "ok 8 DISPLAY_FAST", "start 7 GPU_DEVICE",
                          "bad 7 GPU_DEVICE", "offer 7", "unknown 7", "finished 1 1"));
  EXPECT_EQ(runner.engine.Record().results[4], kAbnormal);
  EXPECT_EQ(runner.engine.Record().results[5], kNormal);
  EXPECT_EQ(runner.engine.Record().passCount, 1);
  EXPECT_EQ(runner.engine.Record().failCount, 1);
}

TEST(Engine, EmptyAndUnknownSelectionsFinish) {
  const InForce inForce;
  Runner runner;
  EXPECT_THAT(runner.Run({}), ElementsAre("finished 0 -1"));
  EXPECT_THAT(runner.Run({static_cast<Category>(12), static_cast<Category>(-1)}),
              ElementsAre("finished 0 -1"));
  EXPECT_EQ(runner.engine.Record().passCount, 2);
  EXPECT_THAT(runner.engine.Record().results, testing::Each(kNotTested));
}

TEST(Engine, CancelEndsTheRunBehindTheCategoryAndKeepsWhatWasTested) {
  const InForce inForce;
  Runner runner;
  runner.atStart = [&runner](Category id) {
    if (id == Category::Motherboard) runner.engine.CancelDetect();
  };
  EXPECT_THAT(runner.Run({Category::Display, Category::Motherboard, Category::Display}),
              ElementsAre("start 8 DISPLAY_FAST", "ok 8 DISPLAY_FAST", "start 1 MOT_FAST",
                          "ok 1 MOT_FAST", "cancelled"));
  EXPECT_EQ(runner.engine.Record().passCount, 2);
  EXPECT_EQ(runner.engine.Record().results[0], kNotTested);
  EXPECT_EQ(StoredRuns(), 1);

  // A cancel after the end does not touch the next run.
  runner.engine.CancelDetect();
  runner.atStart = {};
  EXPECT_THAT(runner.Run({}), ElementsAre("finished 0 -1"));
}

TEST(Engine, AnExceptionEndsTheRunWithoutARecordAndTheNextRunWorks) {
  const InForce inForce(R"({"tests": {"CBatteryDetect::TestLoss": [{"throws": "no answer"}, 3]}})");
  Runner runner;
  EXPECT_THAT(runner.Run({Category::Battery, Category::Display}),
              ElementsAre("start 9 NETCARD_DEVICE", "ok 9 NETCARD_DEVICE", "start 9 BAT_VOLTAGE",
                          "ok 9 BAT_VOLTAGE", "failed no answer"));
  EXPECT_FALSE(runner.engine.IsRunning());
  EXPECT_EQ(StoredRuns(), 0);
  const auto second = runner.Run({Category::Battery});
  EXPECT_EQ(second.back(), "finished 1 0");
  EXPECT_EQ(StoredRuns(), 1);
}

// Three disks of one kind. The second gives no answer when it is asked first.
class ThreeDisks final : public FakeMachine {
 public:
  const machine::Inventory& Info() override { return described->Info(); }
  machine::TestAnswer Test(machine::TestCall, std::size_t, int disk) override {
    asked.push_back(disk);
    if (asked.size() == 2) throw std::runtime_error("no answer");
    return {1, {}, true, {}};
  }

  std::vector<int> asked;

 private:
  const std::unique_ptr<machine::Machine> described =
      machine::ParseMachine(R"({"info": {"CDisk": {"JudgeSSd": [true, true, true]}}})", "disks");
};

TEST(Engine, ARunBehindOneThatFailedAsksTheDisksFromTheFirst) {
  const InForce inForce;
  auto owned = std::make_unique<ThreeDisks>();
  const ThreeDisks& disks = *owned;
  machine::SetCurrent(std::move(owned));
  Runner runner;
  EXPECT_EQ(runner.Run({Category::Disk}).back(), "failed no answer");
  EXPECT_EQ(runner.Run({Category::Disk, Category::Disk}).back(), "finished 0 -1");
  EXPECT_THAT(disks.asked, ElementsAre(0, 1, 0, 1, 2, 0, 1, 2));
}

TEST(Engine, AnEmptyCallbackFailsAtOnceOnTheCallersThread) {
  const InForce inForce;
  DiagnoseEngine engine;
  EXPECT_THROW(engine.BeginDetectRun({}, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr),
               std::bad_function_call);
  EXPECT_THROW(engine.BeginDetectRun(
                   {}, [](auto, auto&) {}, [](auto, auto&) {}, [](auto, auto&) {},
                   [](int, auto, auto&) {}, [] {}, nullptr),
               std::bad_function_call);
  EXPECT_FALSE(engine.IsRunning());
}

TEST(Engine, ARunBegunBeforeTheLastHasEndedWaitsForIt) {
  const InForce inForce;
  Runner runner;
  concurrency::unbounded_buffer<int> started;
  concurrency::unbounded_buffer<int> go;
  runner.atStart = [&](Category id) {
    if (id != Category::Motherboard) return;
    started.send(1);
    go.receive();
  };
  runner.Begin({Category::Motherboard});
  started.receive();
  EXPECT_TRUE(runner.engine.IsRunning());
  runner.Begin({Category::Display});
  go.send(1);
  runner.engine.Wait();
  EXPECT_THAT(runner.notes,
              ElementsAre("start 1 MOT_FAST", "ok 1 MOT_FAST", "finished 0 -1",
                          "start 8 DISPLAY_FAST", "ok 8 DISPLAY_FAST", "finished 0 -1"));
}

TEST(Engine, ACancelFromAnotherThreadEndsTheRunBehindTheCategoryItMeets) {
  const InForce inForce;
  Runner runner;
  concurrency::unbounded_buffer<int> started;
  concurrency::unbounded_buffer<int> go;
  runner.atStart = [&](Category id) {
    if (id != Category::Motherboard) return;
    started.send(1);
    go.receive();
  };
  runner.Begin({Category::Motherboard, Category::Display});
  started.receive();
  std::thread([&runner] { runner.engine.CancelDetect(); }).join();
  go.send(1);
  runner.engine.Wait();
  EXPECT_THAT(runner.notes, ElementsAre("start 1 MOT_FAST", "ok 1 MOT_FAST", "cancelled"));
}

TEST(Engine, ACancelHoldsForARunThatAnotherWaitsBehind) {
  const InForce inForce;
  Runner runner;
  concurrency::unbounded_buffer<int> started;
  concurrency::unbounded_buffer<int> go;
  runner.atStart = [&](Category id) {
    if (id != Category::Motherboard) return;
    started.send(1);
    go.receive();
  };
  runner.Begin({Category::Motherboard, Category::Display});
  started.receive();
  runner.engine.CancelDetect();
  runner.Begin({Category::Display});
  go.send(1);
  runner.engine.Wait();
  EXPECT_THAT(runner.notes,
              ElementsAre("start 1 MOT_FAST", "ok 1 MOT_FAST", "cancelled", "start 8 DISPLAY_FAST",
                          "ok 8 DISPLAY_FAST", "finished 0 -1"));
}

}  // namespace
}  // namespace orv::sysdiagnose
