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
  Outcome Run(std::vector<std::string> command, const char* machine = kMachine) const {
    WriteText(folder.path / "machine.json", machine);
    for (const std::string& word :
         {std::string("--lang"), std::string("en-US"), std::string("--data-dir"),
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
    EXPECT_THAT(text.output,
                HasSubstr("Battery, Bluetooth: Not part of this machine, so left out.\n"))
        << command;
    const Outcome json = Run({command, "--json"});
    for (const char* category : {"2", "9"})
      EXPECT_THAT(json.output,
                  HasSubstr(std::string(R"({"type":"leftOut","category":)") + category +
                            R"(,"text":"Not part of this machine, so left out."})"));
    EXPECT_THAT(json.output, Not(HasSubstr("Battery voltage")));
  }
}

// The list of categories is there, so that it is no use to tell where it was looked for.
TEST_F(LeftOutTest, AMachineWithNothingToTestIsNoMissingList) {
  const char* const bare = R"({"notFitted": ["audio", "motherboard", "bluetooth", "network",
      "processor", "memory", "disk", "graphics", "display", "battery", "keyboard", "fingerprint"]})";
  for (const char* command : {"run", "check"}) {
    const Outcome outcome = Run({command}, bare);
    EXPECT_EQ(outcome.exitStatus, 4);
    EXPECT_THAT(outcome.output, HasSubstr("This machine is built without any of the hardware"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("looked for")));
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
