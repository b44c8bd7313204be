#include <gmock/gmock.h>

#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "common/path_text.h"
#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::HasSubstr;
using testing::SizeIs;

struct Drive {
  std::optional<int> exitStatus;
  std::vector<std::string> answers;
  std::string errors;
};

// The manager with the real plugin and companion service, on a machine that a file describes.
class DriveTest : public testing::Test {
 protected:
  Drive Run(const std::string& script, const std::vector<std::string>& options = {}) const {
    WriteText(folder.path / "script", script);
    std::vector<std::string> words = {APP_DIR "/laptop-manager",
                                      "--headless",
                                      "--machine",
                                      MACHINE_FILES "healthy.json",
                                      "--data-dir",
                                      common::PathText(folder.path / "data"),
                                      "--lang",
                                      "ids",
                                      "drive",
                                      common::PathText(folder.path / "script"),
                                      "--simple-text"};
    words.insert(words.end(), options.begin(), options.end());
    RunningProgram program(words, folder.path / "errors");
    std::string output;
    while (program.Read(output)) {
    }
    Drive drive{program.Wait(), {}, {}};
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
      if (line.ends_with('\r')) line.pop_back();
      drive.answers.push_back(line);
    }
    drive.errors = ReadText(folder.path / "errors");
    return drive;
  }

  const TemporaryFolder folder;
};

TEST_F(DriveTest, MountsTheTabCountsItsEntriesAndTakesThePluginAway) {
  const Drive drive =
      Run("enter\nenter\nevents\ntext optManagerTab\nsend 0x200009\nwait idle\nunload\nenter\n");
  ASSERT_THAT(drive.answers, SizeIs(8)) << drive.errors;
  EXPECT_EQ(drive.answers[2], R"({"ok":true,"events":[{"id":"620000000","payload":""},)"
                              R"({"id":"620000000","payload":""}]})");
  EXPECT_EQ(drive.answers[3], R"({"ok":true,"text":"IDS_HARDWARE_DETECT"})");
  EXPECT_THAT(drive.answers[4], HasSubstr("\"answer\":\"010000002b000000"));
  EXPECT_EQ(drive.answers[6], R"({"ok":true})") << "nothing of it is left in the process";
  EXPECT_EQ(drive.answers[7], R"({"ok":false,"error":"there is no tab"})");
  EXPECT_EQ(drive.exitStatus, 2);
}

TEST_F(DriveTest, AQuietCheckRunsByTheClockAndPostsItsSummary) {
  const Drive drive = Run("send 0x390020 00\nwait idle\nposted\nquit\nfoo\n");
  ASSERT_THAT(drive.answers, SizeIs(4)) << drive.errors;
  EXPECT_THAT(drive.answers[2], HasSubstr(R"("message":"0x20000B")"));
  EXPECT_EQ(drive.exitStatus, 0) << "what stands behind the end is not read";
}

TEST_F(DriveTest, EachMistakeIsOneAnswerAndCommentsAndLineEndsAreNone) {
  const Drive drive = Run("\n # nothing\r\nwindows # none\r\nfoo\nclick\ntick -1\nsend 0x39 0\n" +
                          std::string(5 << 20, 'x') + "\nclick btnNone\nunload now\nwindows");
  ASSERT_THAT(drive.answers, SizeIs(9)) << drive.errors;
  EXPECT_EQ(drive.answers.front(), R"({"ok":true,"windows":[]})");
  EXPECT_EQ(drive.answers.back(), R"({"ok":true,"windows":[]})");
  for (std::size_t index = 1; index < 8; ++index) {
    EXPECT_THAT(drive.answers[index], testing::StartsWith(R"({"ok":false,"error":")"));
    EXPECT_LT(drive.answers[index].size(), 300u);
  }
}

TEST_F(DriveTest, APluginThatCannotBeLoadedIsOneMessage) {
  WriteText(folder.path / "no plugin", "no library");
  for (const char* const file : {"no plugin", "nothing there"}) {
    const Drive drive = Run("enter\n", {"--plugin", common::PathText(folder.path / file)});
    EXPECT_EQ(drive.exitStatus, 2);
    EXPECT_THAT(drive.answers, SizeIs(0));
    EXPECT_THAT(drive.errors, HasSubstr(file));
  }
}

}  // namespace
