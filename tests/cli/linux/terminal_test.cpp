#include "tests/cli/linux/terminal.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class TerminalTest : public testing::Test {
 protected:
  std::vector<std::string> Words(const std::string& language, const std::string& machine,
                                 const std::vector<std::string>& command) const {
    WriteText(folder.path / "machine.json", machine);
    std::vector<std::string> words{"--lang",     language,
                                   "--machine",  (folder.path / "machine.json").string(),
                                   "--data-dir", (folder.path / "data").string()};
    words.insert(words.end(), command.begin(), command.end());
    return words;
  }

  // The columns in which the texts begin, each in the last row that holds it.
  static std::vector<std::size_t> ColumnsOf(const Screen& screen,
                                            const std::vector<std::string>& texts) {
    std::vector<std::size_t> columns;
    for (std::size_t row = 0; row < screen.Rows().size(); ++row)
      for (const std::string& text : texts)
        if (const auto column = screen.ColumnOf(row, text)) columns.push_back(*column);
    return columns;
  }

  const TemporaryFolder folder;
};

TEST_F(TerminalTest, TheLiveLineKeepsToItsRowAndLeavesNothingBehind) {
  for (const unsigned short columns : {80, 24}) {
    SCOPED_TRACE(columns);
    Terminal terminal(
        Words("en-US", R"({"tests":{"CMemFaultDetect::CheckStuckAddr":{"delayMs":600}}})",
              {"run", "memory"}),
        columns);
    ASSERT_TRUE(terminal.ReadUntil("  0.4 s")) << terminal.Written();
    EXPECT_THAT(terminal.Shown().Rows().back(),
                testing::AllOf(StartsWith("[1/1] Memory"), testing::EndsWith("  0.4 s")));
    EXPECT_EQ(terminal.Wait(), 0);
    EXPECT_THAT(terminal.Shown().Rows(), Not(Contains(HasSubstr("[1/1]"))));
  }
}

TEST_F(TerminalTest, TheLiveLineFollowsTheTerminalsWidth) {
  Terminal terminal(Words("en-US", R"({"tests":{"CMemFaultDetect::CheckStuckAddr":{"delayMs":2500},
                                                "CMemFaultDetect::CheckLineSeq":{"delayMs":600}}})",
                          {"run", "memory"}));
  ASSERT_TRUE(terminal.ReadUntil("  0.4 s")) << terminal.Written();
  terminal.Resize(24);
  ASSERT_TRUE(terminal.ReadUntilShown("[1/1] Memory  Ri")) << terminal.Written();
  const std::vector<std::string> rows = terminal.Shown().Rows();
  EXPECT_THAT(rows[0], testing::Eq("Memory"));
  EXPECT_THAT(rows[1], StartsWith("  Address lines")) << "nothing of the wide one is left";
  EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                          [](const std::string& row) { return row.find("[1/1]") != row.npos; }),
            1);
  EXPECT_EQ(terminal.Wait(), 0);
}

TEST_F(TerminalTest, ShowsTheSameLinesAsAFileGetsButInColour) {
  const auto words = Words("en-US", R"({"tests":{"CVideoCardDetect::CheckDevice":5}})",
                           {"run", "display", "graphics"});
  Terminal terminal(words, 200);
  EXPECT_EQ(terminal.Wait(), 1);
  EXPECT_THAT(terminal.Written(), HasSubstr("\033[31mAbnormal\033[0m"));
  const auto withoutEnd = [](const std::string& text) {
    return text.substr(0, text.find("Took "));
  };
  std::string shown;
  for (const std::string& row : terminal.Shown().Rows()) shown += row + "\n";
  EXPECT_EQ(withoutEnd(shown), withoutEnd(RunProgram(words).output));
}

constexpr const char* kFaultyGraphics = R"({
    "tests": {"CVideoCardDetect::CheckDevice": [5, 0]},
    "repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": {"code": 0, "text": "done"}}})";

TEST_F(TerminalTest, ARepairIsMadeIfTheAnswerIsYes) {
  const struct {
    std::string keys;
    bool repairs;
    int exitStatus;
  } cases[] = {{"y\n", true, 0}, {"n\n", false, 1}, {"\n", false, 1}, {"\x04", false, 1}};
  for (const auto& answer : cases) {
    SCOPED_TRACE(testing::PrintToString(answer.keys));
    Terminal terminal(Words("en-US", kFaultyGraphics, {"run", "graphics", "--repair"}));
    ASSERT_TRUE(terminal.ReadUntil("? [y/N] ")) << terminal.Written();
    EXPECT_THAT(terminal.Shown().Rows().back(), StartsWith("Repair Graphics card? [y/N]"));
    terminal.Type(answer.keys);
    EXPECT_EQ(terminal.Wait(), answer.exitStatus);
    EXPECT_EQ(terminal.Written().find("Repaired") != std::string::npos, answer.repairs)
        << terminal.Written();
  }
}

// The first is answered, the second not.
TEST_F(TerminalTest, CtrlCAtAQuestionEndsTheRunAndRepairsNothing) {
  constexpr const char* kTwoFaults = R"({
      "tests": {"CVideoCardDetect::CheckDevice": 5, "CKeyBoardDetect::DetetctHotKey": 2},
      "repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": {"code": 0, "text": "done"},
                  "CKeyBoardDetect::RepairHotkeyByReStartSevice": 0}})";
  for (const auto& command : std::vector<std::vector<std::string>>{
           {"run", "graphics", "keyboard", "--repair", "--json"}, {"check", "--repair"}}) {
    SCOPED_TRACE(command[0]);
    Terminal terminal(Words("en-US", kTwoFaults, command));
    ASSERT_TRUE(terminal.ReadUntil("Repair Graphics card? [y/N] ")) << terminal.Written();
    terminal.Type("y\n");
    ASSERT_TRUE(terminal.ReadUntil("Repair Keyboard? [y/N] ")) << terminal.Written();
    const std::size_t asked = terminal.Written().size();
    terminal.Type("y\x03y\n");
    EXPECT_EQ(terminal.Wait(), 3);
    const std::string after = terminal.Written().substr(asked);
    EXPECT_THAT(after, Not(HasSubstr("Repaired"))) << terminal.Written();
    EXPECT_THAT(after, Not(HasSubstr("repairStart"))) << terminal.Written();
    EXPECT_EQ(after.find("\"cancelled\"") != std::string::npos, command[0] == "run") << after;
  }
}

TEST_F(TerminalTest, WideCharactersLeaveTheColumnsStraight) {
  const char* machine = R"({"info":{"CCpu":{"GetCpuName":"Sample"}}})";
  Terminal check(Words("zh-CN", machine, {"check"}));
  EXPECT_EQ(check.Wait(), 0);
  const std::vector<std::size_t> states = ColumnsOf(check.Shown(), {"正常", "无法检测"});
  EXPECT_GT(states.size(), 10u);
  EXPECT_THAT(states, testing::Contains(40).Times(testing::Ge(10))) << check.Written();
}

TEST_F(TerminalTest, ARunThatWasMadeBeforeTellsHowFarItIs) {
  const auto words =
      Words("en-US", R"({"tests":{"CMemFaultDetect::CheckStuckAddr":{"delayMs":900}}})",
            {"run", "memory"});
  Terminal first(words);
  EXPECT_EQ(first.Wait(), 0);
  EXPECT_THAT(first.Written(), Not(HasSubstr(" %")));
  Terminal second(words);
  EXPECT_TRUE(second.ReadUntil(" left")) << second.Written();
  EXPECT_THAT(second.Shown().Rows().back(), HasSubstr(" %  about 0."));
  EXPECT_EQ(second.Wait(), 0);
}

// Each row ends with the program's own line end, none with the terminal's edge.
TEST_F(TerminalTest, NoRowIsWiderThanTheTerminal) {
  for (const std::string language : {"en-US", "zh-CN"}) {
    for (const unsigned short columns : {40, 80}) {
      SCOPED_TRACE(language + std::to_string(columns));
      Terminal terminal(Words(language, R"({"info":{"CBattery":{"GetBatteryName":"🔋 Akku 电池 🔋"},
                                  "CDisk":{"GetCaption":["Disk A"]}},
                                  "tests":{"CMemFaultDetect::CheckBoard":7,"CBatteryDetect::TestLoss":4,
                                  "CDiskFaultDetect::CheckHhdSmartResult":{"flags":[1,1,1,1]}}})",
                              {"run", "memory", "battery", "disk"}),
                        columns);
      EXPECT_EQ(terminal.Wait(), 1);
      const std::string& written = terminal.Written();
      EXPECT_EQ(terminal.Shown().Rows().size(),
                static_cast<std::size_t>(std::count(written.begin(), written.end(), '\n')) + 1)
          << "and the one behind the last end: " << written;
    }
  }
}

TEST_F(TerminalTest, IsPlainWhereTheUserOrTheTerminalWantsIt) {
  const auto words =
      Words("en-US", R"({"tests":{"CMemFaultDetect::CheckBoard":7}})", {"run", "memory"});
  setenv("NO_COLOR", "1", 1);
  Terminal colourless(words);
  EXPECT_EQ(colourless.Wait(), 1);
  unsetenv("NO_COLOR");
  EXPECT_THAT(colourless.Written(), Not(HasSubstr("\033[3")));
  const char* const before = std::getenv("TERM");
  const std::string terminalBefore = before == nullptr ? "" : before;
  setenv("TERM", "dumb", 1);
  Terminal dumb(words);
  EXPECT_EQ(dumb.Wait(), 1);
  setenv("TERM", terminalBefore.c_str(), 1);
  EXPECT_THAT(dumb.Written(), Not(HasSubstr("\033")));
}

// Of this machine's memory.
TEST_F(TerminalTest, CtrlCCutsALongMemoryTestShortAndSaysSo) {
  const std::string data = (folder.path / "data").string();
  Terminal terminal({"--lang", "en-US", "--data-dir", data, "run", "memory", "display"});
  ASSERT_TRUE(terminal.ReadUntil("[1/2] Memory  ")) << terminal.Written();
  terminal.Type("\x03");
  EXPECT_EQ(terminal.Wait(), 3);
  const std::string& written = terminal.Written();
  EXPECT_THAT(written, HasSubstr("cut short: only 4 MB of memory were tested"));
  EXPECT_THAT(written, HasSubstr("Could not be tested 1, Not reached 1"));
  EXPECT_THAT(written, Not(HasSubstr("Everything is normal")));
  EXPECT_THAT(RunProgram({"--lang", "en-US", "--data-dir", data, "history"}).output,
              HasSubstr("0 of 2 tested, cancelled\n"));
}

// The terminal sends the interrupt.
TEST_F(TerminalTest, CtrlCEndsARunAfterItsCategory) {
  Terminal terminal(Words("en-US",
                          R"({"tests":{"CMemFaultDetect::CheckStuckAddr":{"delayMs":600}}})",
                          {"run", "memory", "display"}));
  ASSERT_TRUE(terminal.ReadUntil("  0.2 s"));
  terminal.Type("\x03");
  ASSERT_TRUE(terminal.ReadUntil("Stopping after this test")) << terminal.Written();
  EXPECT_THAT(terminal.Written(), Not(HasSubstr("Rising values"))) << "answered too late";
  EXPECT_EQ(terminal.Wait(), 3);
  EXPECT_THAT(terminal.Shown().Rows(), Contains(StartsWith("The run was cancelled")));
  EXPECT_THAT(terminal.Written(), Not(HasSubstr("[2/2]")));
}

}  // namespace
