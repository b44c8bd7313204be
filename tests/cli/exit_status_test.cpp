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
      {"{}",
       {"run", "memory", "4x"},
       "unknown category \"4x\"; give a number or one of audio, motherboard, bluetooth, network, "
       "processor, memory, disk, graphics, display, battery, keyboard, fingerprint"},
      {"{}",
       {"history", "--count", "0"},
       "--count: Value 0 not in range 1 to 100000; see sysdiagnose --help"},
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

TEST_F(ExitStatusTest, AFaultyDiskIsSomethingAbnormalThoughItsCategoryIsNormal) {
  const auto machine = Machine(R"({"info":{"CDisk":{"GetCaption":["Disk"]}},
      "tests":{"CDiskFaultDetect::CheckHhdSmartResult":{"flags":[0,1]}}})");
  const Outcome outcome = RunProgram(Words(machine, {"run", "disk"}));
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_NE(outcome.output.find(R"({"type":"finished","abnormal":0,"firstAbnormal":-1})"),
            std::string::npos);
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
  ASSERT_EQ(lines.size(), 9u * 2 + 2);
  EXPECT_NE(lines[17].find("MEM_BIT_FLIP\",\"normal\":true"), std::string::npos);
  EXPECT_EQ(lines[18], R"({"type":"cancelled"})");
  EXPECT_TRUE(
      lines[19].starts_with(R"({"type":"record","cells":[-1,-1,0,)" + std::string(kLastUntested)))
      << lines[19];
  EXPECT_EQ(R"({"type":"record",)" + History().substr(1), lines[19] + "\n");
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
  EXPECT_EQ(Lines(outcome.output).back(), R"({"type":"ended"})");
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
  EXPECT_NE(Lines(outcome.output).back().find(R"("state":2,)"), std::string::npos);
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
  ASSERT_EQ(lines.size(), 3u * 2 + 1);
  EXPECT_NE(lines[5].find("BAT_VOLTAGE\",\"normal\":true"), std::string::npos);
  EXPECT_EQ(lines[6], R"({"type":"failed","error":"library\nfault"})");
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
