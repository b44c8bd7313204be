#include <gtest/gtest.h>

#include <algorithm>

#include "common/path_text.h"
#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

class ExitStatusTest : public testing::Test {
 protected:
  // Words for a machine file with this text.
  std::vector<std::string> Machine(const std::string& text) const {
    WriteText(folder.path / "machine.json", text);
    return {"--machine", (folder.path / "machine.json").string()};
  }

  std::vector<std::string> Words(const std::vector<std::string>& machine,
                                 const std::vector<std::string>& command) const {
    std::vector<std::string> words{"--json", "--capture",  "--lang",
                                   "ids",    "--data-dir", (folder.path / "data").string()};
    words.insert(words.end(), machine.begin(), machine.end());
    words.insert(words.end(), command.begin(), command.end());
    return words;
  }

  std::string Data(const std::string& file) const { return ReadText(folder.path / "data" / file); }

  std::string History() const { return RunProgram(Words({}, {"history"})).output; }

  const TemporaryFolder folder;
};

constexpr const char* kLastUntested = "-1,-1,-1,-1,-1,-1,-1,-1,-1,1,0,";

const std::string kKnownCategories =
    "; give a number from 0 to 11 or one of audio, motherboard, bluetooth, network, processor, "
    "memory, disk, graphics, display, battery, keyboard, fingerprint";

constexpr const char* kMemoryThenProcessor =
    "<sysdiagnose><DetectItem id='5' name='' description=''/>"
    "<DetectItem id='4' name='' description=''/></sysdiagnose>";

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0, end; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
    lines.push_back(text.substr(at, end - at));
  return lines;
}

TEST_F(ExitStatusTest, WrongUseIsOneLineThatSaysWhatIsWrong) {
  const std::string file = common::PathText(folder.path / "machine.json");
  const std::string data = common::PathText(folder.path / "data");
  WriteText(folder.path / "plain", "");
  const struct {
    const char* machine;  // text of the machine file
    std::vector<std::string> words;
    std::string error;
  } cases[] = {
      {"{}", {}, "A subcommand is required; see sysdiagnose --help"},
      {"{}", {"fly"}, "unknown command or option \"fly\"; see sysdiagnose --help"},
      {"{}", {"list", "--fly", "a"}, "unknown command or option \"--fly\"; see sysdiagnose --help"},
      {"{}", {"fly\n\x1b[2J"}, "unknown command or option \"fly??[2J\"; see sysdiagnose --help"},
      {"{}", {"run", "memory", "4x"}, "unknown category \"4x\"" + kKnownCategories},
      {"{}", {"--json", "run", "12"}, "unknown category \"12\"" + kKnownCategories},
      {"{}", {"run", "99999999999"}, "unknown category \"99999999999\"" + kKnownCategories},
      {"{}", {"run", "-1"}, "unknown category \"-1\"" + kKnownCategories},
      {"{}", {"--lang", "xx", "list"}, "unknown language \"xx\"; give one of en-US, zh-CN, ids"},
      {"{}",
       {"history", "--count", "0"},
       "--count: \"0\" is no number from 1 to 100000; see sysdiagnose --help"},
      {"{}", {"--machine", file + "\n", "list"}, file + "?: does not exist"},
      {"{}",
       {"--machine", folder.path.string(), "list"},
       folder.path.string() + ": is a folder, not a file"},
      {"{}",
       {"--data-dir", (folder.path / "plain").string(), "list"},
       common::PathText(folder.path / "plain") + ": is not a folder"},
      {"{\n \"info\": 7,\n}", {"run"}, file + ": 3:1: missing a name for object member"},
      {R"({"info":{"CDisk":{"GetCaption":["a",1]}}})",
       {"run"},
       file + ": info.CDisk.GetCaption[1]: expected a text"},
      {R"({"tests":{"a\nb":1}})", {"run"}, file + ": tests.a\\u000Ab: unknown call"},
  };
  for (const auto& wrong : cases) {
    SCOPED_TRACE(wrong.error);
    std::vector<std::string> words = wrong.words;
    if (std::count(words.begin(), words.end(), "--machine") == 0) {
      words.insert(words.begin(), {"--machine", file});
      WriteText(file, wrong.machine);
    }
    if (std::count(words.begin(), words.end(), "--data-dir") == 0)
      words.insert(words.begin(), {"--data-dir", data});
    const Outcome outcome = RunProgram(words);
    EXPECT_EQ(outcome.exitStatus, 2);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, "sysdiagnose: " + wrong.error + "\n");
  }
  EXPECT_EQ(Data("events.jsonl"), "");
  EXPECT_EQ(History(), "");
}

TEST_F(ExitStatusTest, InformationThatCannotBeReadLeavesTheOtherCategoriesTheirs) {
  const auto machine = Machine(R"({"info":{"CKeyBoard":{"GetKeyBoardName":"Keys"}},
      "tests":{"CAudioDetect::CheckDevice":{"throws":"library fault"}}})");
  const Outcome outcome = RunProgram(Words(machine, {"info", "audio", "keyboard"}));
  EXPECT_EQ(outcome.exitStatus, 4);
  const std::vector<std::string> lines = Lines(outcome.output);
  ASSERT_EQ(lines.size(), 2u) << outcome.output;
  EXPECT_EQ(lines[0], R"({"type":"failed","id":0,"error":"library fault"})");
  EXPECT_NE(lines[1].find("Keys"), std::string::npos);
}

TEST_F(ExitStatusTest, AFaultyDiskIsSomethingAbnormalThoughItsCategoryIsNormal) {
  const auto machine = Machine(R"({"info":{"CDisk":{"GetCaption":["Disk"]}},
      "tests":{"CDiskFaultDetect::CheckHhdSmartResult":{"flags":[0,1]}}})");
  const Outcome outcome = RunProgram(Words(machine, {"run", "disk"}));
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_NE(outcome.output.find(R"("abnormal":0,"firstAbnormal":-1,"verdict":"abnormal"})"),
            std::string::npos);
}

// Nothing abnormal is known, but neither is anything normal.
TEST_F(ExitStatusTest, WhatCouldNotBeTestedIsNotNormal) {
  const struct {
    const char* machine;
    std::vector<std::string> categories;
    int exitStatus;
    std::string verdicts;  // of the categories and the run
  } cases[] = {
      {R"({"info":{"CDisk":{"GetCaption":["A","B"]}},
           "tests":{"CDiskFaultDetect::CheckHhdSmartResult":[2,1]}})",
       {"disk", "display"},
       5,
       "notTested normal notTested"},
      {R"({"tests":{"CBatteryDetect::TestVoltage":{"notTested":"no right"}}})",
       {"battery"},
       5,
       "notTested notTested"},
      {R"({"tests":{"CBatteryDetect::TestLoss":{"notTested":"no right"}}})",
       {"battery"},
       5,
       "notTested notTested"},
      {R"({"tests":{"CBatteryDetect::TestVoltage":{"notTested":"no right"},
                    "CBatteryDetect::TestLoss":4}})",
       {"battery", "disk"},
       1,
       "abnormal notTested abnormal"},
      {R"({"tests":{"CCpuTest::IsSupportSSE":false,"CCpuTest::IsSupportSSE2":false,
                    "CCpuTest::IsSupportSSSE3":false,"CCpuTest::IsSupportSSE41":false,
                    "CCpuTest::IsSupportSSE42":false}})",
       {"processor"},
       5,
       "notTested notTested"},
      {R"({"tests":{"CCpuTest::TestSSE":{"throws":"library fault"}}})",
       {"display", "processor", "keyboard"},
       4,
       "normal notTested notTested"},
      {"{}", {"keyboard", "keyboard"}, 0, "normal normal normal"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.machine);
    std::vector<std::string> command{"run"};
    command.insert(command.end(), each.categories.begin(), each.categories.end());
    const Outcome outcome = RunProgram(Words(Machine(each.machine), command));
    EXPECT_EQ(outcome.exitStatus, each.exitStatus);
    std::string verdicts;
    for (const std::string& line : Lines(outcome.output)) {
      const std::size_t verdict = line.find(R"("verdict":")");
      if (verdict == std::string::npos || line.find("itemResult") != std::string::npos) continue;
      const std::size_t word = verdict + 11;
      verdicts += (verdicts.empty() ? "" : " ") + line.substr(word, line.find('"', word) - word);
    }
    EXPECT_EQ(verdicts, each.verdicts) << outcome.output;
  }
  EXPECT_EQ(RunProgram(Words(Machine(cases[1].machine), {"run"})).exitStatus, 0)
      << "nobody asked for the battery by name";
}

TEST_F(ExitStatusTest, AnInterruptLetsTheCategoryEndAndKeepsWhatWasTested) {
  const auto machine = Machine(R"({"tests":{
      "CMemFaultDetect::CheckStuckAddr":{"delayMs":100},
      "CMemFaultDetect::CheckLineSeq":{"delayMs":300}}})");
  Program program(Words(machine, {"run", "memory", "display", "graphics"}));
  ASSERT_TRUE(program.ReadUntil("MEM_CONTINUE_INC_RW"));
  program.Interrupt();
  const Outcome outcome = program.Wait();

  EXPECT_EQ(outcome.exitStatus, 3);
  EXPECT_EQ(outcome.errors, "");
  const std::vector<std::string> lines = Lines(outcome.output);
  ASSERT_EQ(lines.size(), 9u * 2 + 3);
  EXPECT_NE(lines[17].find("MEM_BIT_FLIP\",\"normal\":true"), std::string::npos);
  EXPECT_EQ(lines[19], R"({"type":"cancelled","verdict":"notTested"})");
  EXPECT_TRUE(
      lines[20].starts_with(R"({"type":"record","cells":[-1,-1,0,)" + std::string(kLastUntested)))
      << lines[20];
  EXPECT_EQ(R"({"type":"record",)" + History().substr(1), lines[20] + "\n");
  EXPECT_EQ(Data("messages.jsonl"), "");
}

// What is not read holds the scan back inside its first category.
TEST_F(ExitStatusTest, AnInterruptEndsAScanAfterItsCategory) {
  std::string modules;
  for (int i = 0; i < 1000; ++i) modules += '"' + std::string(300, 'x') + "\",";
  const auto machine = Machine(R"({"info":{"CCpu":{"GetCpuName":"Sample CPU"},)"
                               R"("CMemory":{"GetPartNumberbyIndex":[)" +
                               modules + R"("last"]}}})");
  WriteText(folder.path / "app/config/SysdiagnoseList.xml", kMemoryThenProcessor);
  Program program(Words(machine, {"scan", "--app-dir", (folder.path / "app").string()}));
  ASSERT_TRUE(program.ReadUntil(R"("category":5)"));
  program.Interrupt();
  const Outcome outcome = program.Wait();
  EXPECT_EQ(outcome.exitStatus, 3);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(Lines(outcome.output).back(), R"({"type":"cancelled"})");
  EXPECT_NE(outcome.output.find(R"("value":"last")"), std::string::npos);
  EXPECT_EQ(outcome.output.find(R"("category":4)"), std::string::npos);
}

TEST_F(ExitStatusTest, AnInterruptEndsACheckAfterItsCategory) {
  const auto machine = Machine(R"({"tests":{"CMemFaultDetect::CheckLineSeq":{"delayMs":600}}})");
  WriteText(folder.path / "app/config/SysdiagnoseList.xml", kMemoryThenProcessor);
  Program program(Words(machine, {"check", "--app-dir", (folder.path / "app").string()}));
  ASSERT_TRUE(program.ReadUntil(R"("state":1,)"));
  program.Interrupt();
  const Outcome outcome = program.Wait();
  EXPECT_EQ(outcome.exitStatus, 3);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(Lines(outcome.output).back(), R"({"type":"cancelled","verdict":"notTested"})");
  EXPECT_NE(outcome.output.find(R"("state":2,)"), std::string::npos);
  EXPECT_EQ(outcome.output.find(R"("category":4)"), std::string::npos);
  EXPECT_EQ(History(), "");
}

TEST_F(ExitStatusTest, ASecondInterruptEndsTheProgramAtOnce) {
  const auto machine = Machine(R"({"tests":{"CMemFaultDetect::CheckLineSeq":{"delayMs":600000}}})");
  Program program(Words(machine, {"run", "memory"}));
  ASSERT_TRUE(
      program.ReadUntil("itemStart\",\"category\":5,\"caption\":\"IDS_HARDWARE_DIAGNOSE_"
                        "MEM_CONTINUE_INC_RW"));
  program.InterruptToTheEnd();
  const Outcome outcome = program.Wait();
  EXPECT_EQ(outcome.exitStatus, 3);
  EXPECT_EQ(Lines(outcome.output).size(), 3u);
  EXPECT_EQ(History(), "");
}

TEST_F(ExitStatusTest, ATestThatThrowsFailsTheRunAndLeavesTheDataUsable) {
  const auto broken =
      Machine("{\"tests\":{\"CBatteryDetect::TestLoss\":{\"throws\":\"library\\nfault\"}}}");
  const Outcome failed = RunProgram(Words(broken, {"run", "display", "battery", "memory"}));
  EXPECT_EQ(failed.exitStatus, 4);
  EXPECT_EQ(failed.errors, "");
  const std::vector<std::string> lines = Lines(failed.output);
  ASSERT_EQ(lines.size(), 3u * 2 + 3);
  EXPECT_NE(lines[6].find("BAT_VOLTAGE\",\"normal\":true"), std::string::npos);
  EXPECT_EQ(lines[8], R"({"type":"failed","error":"library\nfault","verdict":"notTested"})");
  EXPECT_EQ(History(), "");
  EXPECT_EQ(Data("messages.jsonl"), "");
  EXPECT_EQ(Lines(Data("events.jsonl")).size(), 1u);
  EXPECT_NE(Data("log/sysdiagnose.log").find("The run ended with an error: library\\u000Afault"),
            std::string::npos)
      << Data("log/sysdiagnose.log");

  const Outcome next = RunProgram(Words(Machine("{}"), {"run", "battery"}));
  EXPECT_EQ(next.exitStatus, 0);
  EXPECT_EQ(R"({"type":"record",)" + History().substr(1), Lines(next.output).back() + "\n");
}

}  // namespace
