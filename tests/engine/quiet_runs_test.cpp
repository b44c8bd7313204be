#include "sysdiagnose/engine/quiet_runs.h"

#include <gmock/gmock.h>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/message/ipc_message_client.h"
#include "sysdiagnose/records/history_store.h"
#include "tests/support/fake_clock.h"
#include "tests/support/in_force.h"
#include "tests/support/virtual_clock.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;
using Category = enmHardwareID;

constexpr const char* kList =
    "<sysdiagnose><DetectItem id='4' name='' description=''/>"
    "<DetectItem id='7' name='' description=''/><DetectItem id='10' name='' description=''/>"
    "</sysdiagnose>";

// The host's main page: notes each summary as "<abnormal> <category>:<state> ...".
class QuietRunsTest : public testing::Test {
 protected:
  explicit QuietRunsTest()
      : inForce(
            R"({"tests": {"CVideoCardDetect::CheckDevice": 5, "CKeyBoardDetect::DetetctHotKey": 2},
                    "repairs": {"CKeyBoardDetect::RepairHotkeyByReStartSevice": 9}})"),
        host(0x200001, false) {
    inForce.WriteConfig("SysdiagnoseList.xml", kList);
    host.SubscribeIPCMessage(protocol::kHostGroup, 0);
    host.RegisterMessageCallback(protocol::kQuietSummary, [this](const tagIPC_MESSAGE_ITEM& item) {
      protocol::CIPCDataIO body(item.data, item.dataLength);
      DiagnoseSummary summary;
      protocol::ReadVersioned(body, summary);
      std::string note = std::to_string(summary.abnormalCount);
      for (const DetectListEntry& entry : summary.items)
        note += " " + std::to_string(entry.category) + ":" +
                std::to_string(static_cast<int>(entry.state));
      notes.push_back(note);
      last = summary;
    });
  }

  ~QuietRunsTest() override { message::WaitUntilDelivered(); }  // its handler uses the members

  std::vector<std::string> Detect() {
    runs.BeginDetection([this](Category id, bool normal) { verdicts.emplace_back(id, normal); }, {},
                        {});
    return Noted();
  }

  std::vector<std::string> Noted() {
    runs.Wait();
    message::WaitUntilDelivered();
    return std::exchange(notes, {});
  }

  InForce inForce;
  FakeClock clock{1000};
  CIPCMessageClient host;
  std::vector<std::string> notes;
  DiagnoseSummary last;
  std::vector<std::pair<Category, bool>> verdicts;
  QuietRuns runs;
};

TEST_F(QuietRunsTest, DetectionShowsEachCategoryAndKeepsNoRow) {
  EXPECT_THAT(Detect(), ElementsAre("0 4:1", "0 4:2 7:1", "1 4:2 7:3 10:1", "2 4:2 7:3 10:3"));
  EXPECT_THAT(verdicts, ElementsAre(std::pair(Category::Processor, true),
                                    std::pair(Category::GraphicsCard, false),
                                    std::pair(Category::Keyboard, false)));
  EXPECT_EQ(clock.SecondsSinceEpoch(), 1000);  // 3 x 0.2 s
  EXPECT_EQ(last.items[1].resultText,
            L"{f 16}{c #7F7F7F}IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE{/f}{/c}");
  EXPECT_TRUE(last.items[1].repairable);
  LoadDailyHistory(1, [](const auto& records) { EXPECT_TRUE(records.empty()); });
}

TEST_F(QuietRunsTest, RepairMendsWhatWasOfferedForTheCategoriesNamed) {
  Detect();
  runs.BeginRepair({Category::Processor, Category::GraphicsCard, Category::Keyboard}, {}, {});
  EXPECT_THAT(Noted(), ElementsAre("2 4:2 7:3 10:3", "1 4:2 7:2 10:3", "1 4:2 7:2 10:3",
                                   "1 4:2 7:2 10:3", "1 4:2 7:2 10:3"));
  EXPECT_EQ(clock.SecondsSinceEpoch(), 1007);  // 0.6 + 1 + 2 x 0.5 + 5 s
  EXPECT_EQ(runs.OfferedRepairs().size(), 1);
}

TEST_F(QuietRunsTest, AStopEndsItBetweenCategoriesAndTheNextStartIsNotStopped) {
  runs.BeginDetection([this](Category, bool) { runs.RequestStop(); }, {}, {});
  EXPECT_THAT(Noted(), ElementsAre("0 4:1", "0 4:2"));
  EXPECT_EQ(Detect().size(), 4);
}

TEST_F(QuietRunsTest, AStopHoldsForTheRunsBegunBeforeItWhateverBeginsLater) {
  concurrency::unbounded_buffer<int> inside;
  concurrency::unbounded_buffer<int> go;
  const auto holdTheFirst = [&](Category id, bool) {
    if (id != Category::Processor) return;
    inside.send(1);
    go.receive();
  };
  runs.BeginDetection(holdTheFirst, {}, {});
  inside.receive();
  runs.RequestStop();
  runs.BeginDetection({}, {}, {});
  go.send(1);
  EXPECT_THAT(Noted(), ElementsAre("0 4:1", "0 4:2", "0 4:1", "0 4:2 7:1", "1 4:2 7:3 10:1",
                                   "2 4:2 7:3 10:3"));

  runs.BeginDetection(holdTheFirst, {}, {});
  inside.receive();
  runs.BeginDetection({}, {}, {});
  runs.RequestStop();
  go.send(1);
  EXPECT_THAT(Noted(), ElementsAre("0 4:1", "0 4:2", "0"));
}

TEST_F(QuietRunsTest, ASecondRunOfAnotherOwnerWaitsItsTurn) {
  concurrency::unbounded_buffer<int> inside;
  concurrency::unbounded_buffer<int> go;
  std::vector<std::string> order;
  runs.BeginDetection(
      [&](Category id, bool) {
        order.push_back("first " + std::to_string(static_cast<int>(id)));
        if (id != Category::Processor) return;
        inside.send(1);
        go.receive();
      },
      {}, {});
  inside.receive();
  QuietRuns other;
  other.BeginDetection(
      [&](Category id, bool) { order.push_back("second " + std::to_string(static_cast<int>(id))); },
      {}, {});
  go.send(1);
  runs.Wait();
  other.Wait();
  EXPECT_THAT(order,
              ElementsAre("first 4", "first 7", "first 10", "second 4", "second 7", "second 10"));
}

// A run that waits for its turn must not keep time from being stepped through.
TEST(QuietRunsInVirtualTime, ARunThatWaitsItsTurnRests) {
  const InForce inForce;
  inForce.WriteConfig("SysdiagnoseList.xml", kList);
  VirtualClock clock;
  std::vector<std::string> order;
  const auto noted = [&order](const std::string& name) {
    return [&order, name](Category id, bool) {
      order.push_back(name + " " + std::to_string(static_cast<int>(id)));
    };
  };
  QuietRuns first;
  QuietRuns second;
  first.BeginDetection(noted("first"), {}, {});
  clock.Advance({});
  second.BeginDetection(noted("second"), {}, {});
  clock.Advance(std::chrono::milliseconds(599));
  EXPECT_THAT(order, ElementsAre("first 4", "first 7", "first 10"));
  clock.Advance(std::chrono::milliseconds(1));
  EXPECT_EQ(order.back(), "second 4");
  clock.Advance(std::chrono::milliseconds(600));
  EXPECT_EQ(order.size(), 6U);
  first.Wait();
  second.Wait();
}

}  // namespace
}  // namespace orv::sysdiagnose
