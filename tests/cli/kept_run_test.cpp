#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include <algorithm>

#include "common/path_text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kNormal = "{}";
const std::string kAbnormal = R"({"tests":{"CBatteryDetect::TestLoss":4}})";

class KeptRunTest : public testing::Test {
 protected:
  KeptRunTest() { std::filesystem::create_directories(store.parent_path()); }

  Outcome Run(const std::string& machine, std::vector<std::string> command) const {
    WriteText(folder.path / "machine.json", machine);
    command.insert(command.begin(),
                   {"--lang", "en-US", "--machine", (folder.path / "machine.json").string(),
                    "--data-dir", store.parent_path().string()});
    return RunProgram(command);
  }

  // A store that an earlier run has left, changed by a statement.
  void ChangeStore(const std::string& statement) const {
    Run(kNormal, {"run", "battery"});
    SQLite::Database(common::PathText(store), SQLite::OPEN_READWRITE).exec(statement);
  }

  const TemporaryFolder folder;
  const std::filesystem::path store = folder.path / "data" / "store.db";
};

TEST_F(KeptRunTest, TheProgramAndTheReportSayWhyTheStoreRefusedTheRow) {
  ChangeStore(
      "CREATE TRIGGER refuses BEFORE INSERT ON TABLE_HARDWARE_DIAGNOSE "
      "BEGIN SELECT RAISE(ABORT, 'no <more> rows'); END");
  const std::string page = (folder.path / "report.html").string();
  const Outcome text = Run(kNormal, {"run", "battery", "--report", page});
  EXPECT_EQ(text.exitStatus, 2);
  EXPECT_THAT(text.output, HasSubstr("The run could not be kept: " + common::PathText(store) +
                                     ": no <more> rows\n"));
  EXPECT_THAT(text.output, Not(HasSubstr("Kept as")));
  EXPECT_THAT(ReadText(page), HasSubstr(": no &lt;more&gt; rows"));
  EXPECT_THAT(ReadText(page), HasSubstr("class=\"notice bad\""));

  const std::string data = (folder.path / "report.json").string();
  const Outcome json = Run(kAbnormal, {"--json", "run", "battery", "--report", data});
  EXPECT_EQ(json.exitStatus, 1) << "what is abnormal comes first";
  EXPECT_THAT(json.output, HasSubstr("{\"type\":\"notKept\",\"error\":\""));
  EXPECT_THAT(ReadText(data), HasSubstr("\"notKept\": \""));
  EXPECT_EQ(Run(kNormal, {"history"}).exitStatus, 0) << "it can still be read";
}

TEST_F(KeptRunTest, AHistoryThatCannotBeReadIsNoEmptyOne) {
  EXPECT_THAT(Run(kNormal, {"history"}).output, HasSubstr("No run"));
  ChangeStore("PRAGMA user_version = 1000");
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"history"}, std::vector<std::string>{"history", "--json"}}) {
    const Outcome history = Run(kNormal, command);
    EXPECT_EQ(history.exitStatus, 2);
    EXPECT_EQ(history.output, "");
    EXPECT_EQ(history.errors, "sysdiagnose: " + common::PathText(store) +
                                  ": was written by a newer version of this program\n");
  }
  const std::string data = (folder.path / "report.json").string();
  EXPECT_EQ(Run(kNormal, {"run", "battery", "--report", data}).exitStatus, 2);
  EXPECT_THAT(ReadText(data), HasSubstr("\"historyFault\": \""));
}

TEST_F(KeptRunTest, ARowThatSomebodyElseChangedIsNamedAndCannotTakeTheTerminalOver) {
  ChangeStore("UPDATE TABLE_HARDWARE_DIAGNOSE SET DateTime = char(27) || '[2Jnow'");
  const Outcome shown = Run(kNormal, {"history"});
  EXPECT_EQ(shown.exitStatus, 0);
  EXPECT_THAT(shown.output, AllOf(HasSubstr("[2Jnow  "), Not(HasSubstr("\033"))));
  ChangeStore("UPDATE TABLE_HARDWARE_DIAGNOSE SET Battery = 'worn'");
  const Outcome refused = Run(kNormal, {"history"});
  EXPECT_EQ(refused.exitStatus, 2);
  EXPECT_THAT(refused.errors,
              AllOf(HasSubstr(common::PathText(store.parent_path()) + ": TABLE_HARDWARE_DIAGNOSE"),
                    HasSubstr("cell 9 (Battery) is not a 64-bit integer\n")));
}

TEST_F(KeptRunTest, WhatTheLastRunFoundAbnormalIsTestedAgain) {
  const std::string machine = R"({"info":{"CDisk":{"GetCaption":["A"]}},"tests":{
      "CDiskFaultDetect::CheckHhdSmartResult":{"flags":[1]},"CBatteryDetect::TestLoss":4}})";
  EXPECT_EQ(Run(machine, {"run", "--failed"}).errors, "sysdiagnose: no earlier run is known\n");
  Run(machine, {"run", "display", "disk", "battery"});
  const Outcome again = Run(machine, {"--json", "run", "--failed"});
  EXPECT_EQ(again.exitStatus, 1);
  EXPECT_THAT(again.output, AllOf(HasSubstr(R"("category":6)"), HasSubstr(R"("category":9)"),
                                  Not(HasSubstr(R"("category":8)"))));
  EXPECT_EQ(Run(machine, {"run", "--failed", "disk"}).exitStatus, 2);
  EXPECT_EQ(Run(kNormal, {"run", "--failed"}).exitStatus, 5) << "the disk is gone";
  EXPECT_EQ(Run(kNormal, {"run", "--failed"}).exitStatus, 2) << "nothing was abnormal";

  const std::string all = Run(kNormal, {"history", "--all"}).output;
  EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 3) << all;
  EXPECT_THAT(all, HasSubstr("Normal 1, Abnormal 2, 3 of 3 tested: Disk, Battery\n"));
  EXPECT_THAT(all, HasSubstr("Normal 1, Abnormal 0, Could not be tested 1, 1 of 2 tested\n"));
}

TEST_F(KeptRunTest, ACancelledRunTellsHowFarItCameAndCanBeResumed) {
  const std::string slow = R"({"tests":{"CMemFaultDetect::CheckLineSeq":{"delayMs":300}}})";
  WriteText(folder.path / "machine.json", slow);
  Program program({"--json", "--machine", (folder.path / "machine.json").string(), "--data-dir",
                   store.parent_path().string(), "run", "memory", "display", "keyboard"});
  ASSERT_TRUE(program.ReadUntil("itemStart"));
  program.Interrupt();
  EXPECT_EQ(program.Wait().exitStatus, 3);
  EXPECT_THAT(Run(slow, {"history"}).output,
              HasSubstr("Normal 1, Abnormal 0, Not reached 2, 1 of 3 tested, cancelled\n"));
  const Outcome rest = Run(slow, {"run", "--resume"});
  EXPECT_EQ(rest.exitStatus, 0);
  EXPECT_THAT(rest.output, AllOf(testing::StartsWith("Display\n"), HasSubstr("\nKeyboard\n"),
                                 Not(HasSubstr("Memory"))));
  EXPECT_EQ(Run(slow, {"run", "--resume"}).exitStatus, 2);
}

// Lines of the program's own file that are damaged lose only themselves.
TEST_F(KeptRunTest, ADamagedLogOfTheRunsIsPassedOver) {
  Run(kAbnormal, {"run", "battery"});
  const std::filesystem::path log = store.parent_path() / "runs.jsonl";
  const std::string good = ReadText(log);
  WriteText(log,
            "{\"secondTime\":1}\nnot json\n" + good +
                R"({"secondTime":1,"end":"finished","categories":[{"category":9,"verdict":"ill",)" +
                "\n" + good.substr(0, good.size() / 2));
  const Outcome again = Run(kAbnormal, {"--json", "run", "--failed"});
  EXPECT_EQ(again.exitStatus, 1);
  EXPECT_THAT(again.output, HasSubstr(R"("category":9)"));
}

TEST_F(KeptRunTest, AnItemIsMadeAloneAndLeavesNoTrace) {
  const std::string machine = R"({"info":{"CDisk":{"GetCaption":["A","B"]}},"tests":{
      "CDiskFaultDetect::CheckHhdSmartResult":[1,2],"CMemFaultDetect::CheckBoard":7,
      "CBatteryDetect::TestVoltage":{"notTested":"no right"}}})";
  const struct {
    std::vector<std::string> words;
    int exitStatus;
    std::string shown;
  } cases[] = {
      {{"memory/CheckBoard"}, 1, "CheckBoard"},
      {{"memory/CheckRandom", "memory/CheckBitFlip"}, 0, "CheckBitFlip"},
      {{"battery/TestVoltage"}, 5, "no right"},
      {{"disk/CheckHhdSmartResult"}, 5, "CheckHhdSmartResult B"},
      {{"memory/TestVoltage"}, 2, ""},
      {{"display/CheckBoard"}, 2, ""},
      {{"memory/CheckRandom", "memory"}, 2, ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.words[0]);
    std::vector<std::string> command{"run"};
    command.insert(command.end(), each.words.begin(), each.words.end());
    const Outcome outcome = Run(machine, command);
    EXPECT_EQ(outcome.exitStatus, each.exitStatus) << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr(each.shown));
  }
  EXPECT_THAT(Run(kNormal, {"history", "--all"}).output, HasSubstr("No run"));
  EXPECT_EQ(ReadText(store.parent_path() / "events.jsonl"), "");
}

TEST_F(KeptRunTest, ADamagedStoreIsNamedAndTheRunIsKeptInANewOne) {
  WriteText(store, "no store, and long enough to tell");
  const Outcome history = Run(kNormal, {"history"});
  EXPECT_EQ(history.exitStatus, 2) << "the runs that were asked for are not shown";
  EXPECT_THAT(history.errors, HasSubstr("store.db.damaged-"));

  std::filesystem::remove_all(store.parent_path());
  WriteText(store, "no store either, and long enough to tell");
  const Outcome run = Run(kNormal, {"run", "battery"});
  EXPECT_EQ(run.exitStatus, 0);
  EXPECT_THAT(run.output, HasSubstr("Kept as"));
  EXPECT_THAT(run.errors, HasSubstr("store.db.damaged-"));
  const Outcome next = Run(kNormal, {"history"});
  EXPECT_EQ(next.exitStatus, 0);
  EXPECT_EQ(next.errors, "");
  EXPECT_THAT(next.output, HasSubstr("Normal 1"));
}

TEST_F(KeptRunTest, ACancelledRunThatIsLostStaysACancelledOne) {
  ChangeStore("PRAGMA user_version = 1000");
  WriteText(folder.path / "slow.json",
            R"({"tests":{"CMemFaultDetect::CheckLineSeq":{"delayMs":300}}})");
  Program program({"--json", "--machine", (folder.path / "slow.json").string(), "--data-dir",
                   store.parent_path().string(), "run", "memory", "display"});
  ASSERT_TRUE(program.ReadUntil("itemStart"));
  program.Interrupt();
  const Outcome outcome = program.Wait();
  EXPECT_EQ(outcome.exitStatus, 3);
  EXPECT_THAT(
      outcome.output,
      HasSubstr("{\"type\":\"cancelled\",\"verdict\":\"notTested\"}\n{\"type\":\"record\""));
  EXPECT_THAT(outcome.output, HasSubstr("{\"type\":\"notKept\""));
}

}  // namespace
