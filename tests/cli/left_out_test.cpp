#include <gmock/gmock.h>

#include "tests/cli/program.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

// The battery is ill, but the machine has none by its build; nor has it bluetooth.
constexpr const char* kMachine = R"({"notFitted": ["battery", "bluetooth"],
    "tests": {"CBatteryDetect::CheckDevice": 1, "CBluetoothDetect::CheckDevice": 1}})";

class LeftOutTest : public testing::Test {
 protected:
  Outcome Run(std::vector<std::string> command) const {
    WriteText(folder.path / "machine.json", kMachine);
    for (const std::string& word :
         {std::string("--lang"), std::string("ids"), std::string("--data-dir"),
          (folder.path / "data").string(), std::string("--machine"),
          (folder.path / "machine.json").string()})
      command.push_back(word);
    return RunProgram(command);
  }

  const TemporaryFolder folder;
};

TEST_F(LeftOutTest, ARunOfAllCategoriesLeavesOutWhatIsNotFittedAndSaysSo) {
  for (const char* command : {"run", "check"}) {
    const Outcome text = Run({command});
    EXPECT_EQ(text.exitStatus, 0) << command << text.output;
    EXPECT_THAT(text.output, HasSubstr("IDS_HARDWARE_DETECT_BATTERY, IDS_HARDWARE_DETECT_BT"
                                       ": IDS_HARDWARE_DIAGNOSE_NOT_FITTED\n"))
        << command;
    const Outcome json = Run({command, "--json"});
    for (const char* category : {"2", "9"})
      EXPECT_THAT(json.output,
                  HasSubstr(std::string(R"({"type":"leftOut","category":)") + category +
                            R"(,"text":"IDS_HARDWARE_DIAGNOSE_NOT_FITTED"})"));
    EXPECT_THAT(json.output, Not(HasSubstr("BAT_VOLTAGE")));
  }
}

TEST_F(LeftOutTest, ACategoryThatIsNamedIsTestedAllTheSame) {
  const Outcome outcome = Run({"run", "battery", "--json"});
  EXPECT_EQ(outcome.exitStatus, 1);
  EXPECT_THAT(outcome.output, Not(HasSubstr("leftOut")));
}

TEST_F(LeftOutTest, ARecordingSaysIt) {
  EXPECT_EQ(Run({"record", (folder.path / "copy.json").string()}).exitStatus, 0);
  EXPECT_THAT(ReadText(folder.path / "copy.json"),
              HasSubstr(R"("notFitted": ["battery", "bluetooth"])"));
}

}  // namespace
