#include "sysdiagnose/engine/hardware_scan.h"

#include <gmock/gmock.h>

#include "platform/concurrency/message_blocks.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

using testing::ElementsAre;

// The scan of a category list, in force before the process-wide catalogue is made.
class HardwareScanTest : public testing::Test {
 protected:
  void Offer(const std::vector<std::string>& ids) const {
    std::string list;
    for (const std::string& id : ids)
      list += "<DetectItem id='" + id + "' name='' description=''/>";
    inForce.WriteConfig("SysdiagnoseList.xml", "<sysdiagnose>" + list + "</sysdiagnose>");
  }

  std::vector<std::string> Scan() {
    scan.Start(
        [this](enmHardwareID id, tagHardwareDetailInfo& row) {
          notes.push_back("row " + std::to_string(static_cast<int>(id)) +
                          (row.kind == tagHardwareDetailInfo::kEmptyRow ? " empty" : ""));
          if (onRow) onRow();
          return true;
        },
        [this](enmHardwareID last) {
          notes.push_back("complete " + std::to_string(static_cast<int>(last)));
        },
        [this] { notes.emplace_back("ended"); });
    scan.Wait();
    concurrency::wait_until_idle();
    return std::exchange(notes, {});
  }

  std::string Events() const {
    const auto file = inForce.folder.path / "data/events.jsonl";
    return std::filesystem::exists(file) ? ReadText(file) : "";
  }

  const InForce inForce{
      R"({"info": {"CCpu": {"GetCpuName": "C"}, "CBattery": {"GetBatteryName": "B"}}})"};
  HardwareScan scan;
  std::function<void()> onRow;
  std::vector<std::string> notes;
};

TEST_F(HardwareScanTest, ReportsWhatWasFoundOfEachCategoryScanned) {
  Offer({"3", "15", "-1", "4"});
  EXPECT_THAT(Scan(), ElementsAre("row 3 empty", "row 4", "complete 4"));
  EXPECT_THAT(Events(), testing::HasSubstr(R"("id":620000010,"payload":"0,0,1")"));
}

TEST_F(HardwareScanTest, AnEmptyListCompletesWithMinusOne) {
  EXPECT_THAT(Scan(), ElementsAre("complete -1"));
  EXPECT_THAT(Events(), testing::HasSubstr(R"("id":620000010,"payload":"")"));
}

TEST_F(HardwareScanTest, CompletesWithTheLastItemEvenIfItWasSkipped) {
  Offer({"9", "12"});
  EXPECT_THAT(Scan(), ElementsAre("row 9", "complete 12"));
}

TEST_F(HardwareScanTest, ACancelEndsItBeforeTheNextCategoryWithoutAReport) {
  Offer({"4", "9"});
  onRow = [this] { scan.Cancel(); };
  EXPECT_THAT(Scan(), ElementsAre("row 4", "ended"));
  EXPECT_EQ(Events(), "");
  onRow = {};
  EXPECT_THAT(Scan(), ElementsAre("row 4", "row 9", "complete 9"));
}

TEST_F(HardwareScanTest, AnEmptyCallbackFailsAtOnce) {
  EXPECT_THROW(scan.Start(
                   {}, [](auto) {}, [] {}),
               std::bad_function_call);
  EXPECT_FALSE(scan.IsRunning());
}

TEST_F(HardwareScanTest, TheRowCallbackMayHoldTheScanBack) {
  Offer({"4", "9"});
  concurrency::unbounded_buffer<int> shown;
  concurrency::unbounded_buffer<int> arrived;
  scan.Start(
      [&](enmHardwareID id, tagHardwareDetailInfo&) {
        arrived.send(static_cast<int>(id));
        shown.receive();
        return true;
      },
      [](auto) {}, [] {});
  EXPECT_EQ(arrived.receive(), 4);
  EXPECT_TRUE(scan.IsRunning());
  int next = 0;
  EXPECT_FALSE(arrived.try_receive(next));
  shown.send(1);
  EXPECT_EQ(arrived.receive(), 9);
  shown.send(1);
  scan.Wait();
  concurrency::wait_until_idle();
}

}  // namespace
}  // namespace orv::sysdiagnose
