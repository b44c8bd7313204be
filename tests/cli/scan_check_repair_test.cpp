#include <gmock/gmock.h>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::HasSubstr;

// Three offered categories: the processor is well, the graphics card fails, the keyboard fails
// twice and one of its repairs fails, too.
constexpr const char* kMachine = R"({
    "info": {"CCpu": {"GetCpuName": "Sample CPU"}},
    "tests": {"CVideoCardDetect::CheckDevice": [5, 0], "CKeyBoardDetect::DetetctFilterKey": 1,
              "CKeyBoardDetect::DetetctHotKey": 2},
    "repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": {"code": 0, "restart": true, "text": "done"},
                "CKeyBoardDetect::RepairHotkeyByReStartSevice": {"code": 9, "text": "no service"}}})";
constexpr const char* kList =
    "<sysdiagnose><DetectItem id='4' name='' description=''/>"
    "<DetectItem id='7' name='' description=''/><DetectItem id='10' name='' description=''/>"
    "<DetectItem id='15' name='' description=''/></sysdiagnose>";

class RepairCommandTest : public testing::Test {
 protected:
  RepairCommandTest() {
    WriteText(folder.path / "machine.json", kMachine);
    WriteText(folder.path / "app/config/SysdiagnoseList.xml", kList);
  }

  Outcome Run(const std::vector<std::string>& command) const {
    std::vector<std::string> words{"--json",
                                   "--lang",
                                   "ids",
                                   "--data-dir",
                                   (folder.path / "data").string(),
                                   "--app-dir",
                                   (folder.path / "app").string(),
                                   "--machine",
                                   (folder.path / "machine.json").string()};
    words.insert(words.end(), command.begin(), command.end());
    return RunProgram(words);
  }

  const TemporaryFolder folder;
};

TEST_F(RepairCommandTest, ScanShowsRowsAndEndsWithTheLastItemOfTheList) {
  const Outcome outcome = Run({"scan"});
  EXPECT_EQ(outcome.exitStatus, 0);
  EXPECT_EQ(
      outcome.output,
      R"({"type":"row","category":4,"label":"IDS_HARDWARE_DETECT_CPU","value":"Sample CPU","kind":0}
{"type":"row","category":7,"label":"","value":"","kind":1}
{"type":"row","category":10,"label":"","value":"","kind":1}
{"type":"complete","category":15}
{"type":"finished"}
)");
  EXPECT_THAT(ReadText(folder.path / "data/events.jsonl"),
              HasSubstr(R"("id":620000010,"payload":"1,0,0")"));
}

TEST_F(RepairCommandTest, ARunRepairsWhatWasOfferedAndStoresASecondRow) {
  const Outcome outcome = Run({"run", "graphics", "processor", "keyboard", "--repair", "--yes"});
  EXPECT_EQ(outcome.exitStatus, 1);
  const auto repairs = outcome.output.find(R"({"type":"categoryStart")");
  ASSERT_NE(repairs, std::string::npos) << outcome.output;
  EXPECT_THAT(outcome.output.substr(repairs),
              testing::StartsWith(
                  R"({"type":"categoryStart","position":0,"category":7}
{"type":"repairStart","position":0,"category":7,"command":"RepairVideoCard","parameter":"5"}
{"type":"repairResult","position":0,"category":7,"command":"RepairVideoCard","code":0,"restart":true,"text":"done"}
{"type":"categoryResult","repaired":true,"category":7,"position":0}
{"type":"categoryStart","position":2,"category":10}
{"type":"repairStart","position":2,"category":10,"command":"RepairFilterKey","parameter":"1"}
{"type":"repairResult","position":2,"category":10,"command":"RepairFilterKey","code":0,"restart":false,"text":""}
{"type":"repairStart","position":2,"category":10,"command":"RepairHotkey","parameter":"2"}
{"type":"repairResult","position":2,"category":10,"command":"RepairHotkey","code":9,"restart":false,"text":"no service"}
{"type":"categoryResult","repaired":false,"category":10,"position":2}
{"type":"repairFinished","all":false,"restart":true,"firstFaulty":2}
{"type":"record","cells":[0,-1,-1,-1,0,-1,-1,-1,-1,-1,1,-1,2,1,)"));
}

TEST_F(RepairCommandTest, TheReportTellsOfTheRepairs) {
  const std::string file = (folder.path / "report.json").string();
  Run({"run", "graphics", "--repair", "--yes", "--report", file});
  const std::string report = ReadText(file);
  EXPECT_THAT(report, HasSubstr(R"("result": "normal")"));
  EXPECT_THAT(report, HasSubstr(R"("command": "RepairVideoCard",
     "succeeded": true,
     "restart": true,
     "text": "done")"));
}

TEST_F(RepairCommandTest, NothingIsTouchedUnlessSomebodyAgrees) {
  const Outcome outcome = Run({"run", "graphics", "--repair"});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_EQ(outcome.output.find("categoryStart"), std::string::npos);
  EXPECT_EQ(outcome.errors, "sysdiagnose: IDS_HARDWARE_TERMINAL_NOBODY_AGREES\n");
  EXPECT_EQ(Run({"run", "--yes"}).exitStatus, 2);
}

TEST_F(RepairCommandTest, CheckPrintsEachSummaryAndRepairsWithoutAHistoryRow) {
  const Outcome outcome = Run({"check", "--repair", "--yes"});
  EXPECT_EQ(outcome.exitStatus, 1);
  const auto count = [&outcome](const std::string& text) {
    int found = 0;
    for (auto at = outcome.output.find(text); at != std::string::npos;
         at = outcome.output.find(text, at + 1))
      ++found;
    return found;
  };
  // Four categories and the last verdict; then before, after each of three repairs, and twice more.
  EXPECT_EQ(count(R"({"type":"summary","message":"0x20000B","headline":")"), 11);
  EXPECT_EQ(count(R"x("abnormal":2,"result":"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM(2)")x"), 3);
  EXPECT_EQ(count(R"("repairable":true,"selected":true,"category":7})"), 4);
  EXPECT_THAT(outcome.output,
              HasSubstr(R"("description":"{f 16}{c #7F7F7F}Sample CPU{/f}{/c}","state":1)"));
  EXPECT_THAT(
      outcome.output,
      testing::EndsWith(R"({"type":"finished","abnormal":1,"firstAbnormal":2,"verdict":"abnormal"})"
                        "\n"));
  EXPECT_EQ(Run({"history"}).output, "");
}

}  // namespace
