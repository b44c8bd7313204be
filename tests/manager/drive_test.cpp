#include <atomic>
#include <thread>

#include "common/path_text.h"
#include "tests/manager/driven_manager.h"

namespace {

using testing::Each;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

// With the real plugin.
class DriveTest : public DrivenManager {
 protected:
  DriveTest() { machine = MACHINE_FILES "healthy.json"; }

  Drive Run(const std::string& script, std::vector<std::string> options = {}) const {
    options.emplace_back("--simple-text");
    return DrivenManager::Run(script, options);
  }
};

TEST_F(DriveTest, MountsTheTabCountsItsEntriesAndTakesThePluginAway) {
  const Drive drive =
      Run("enter\nenter\nevents\ntext optManagerTab[1]\nsend 0x200009\nwait idle\nunload\nenter\n");
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
    EXPECT_THAT(drive.answers[index], StartsWith(R"({"ok":false,"error":")"));
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

TEST_F(DriveTest, ACheckThatALibraryEndsIsSaidToHaveBrokenOffAndCanBeginAgain) {
  machine = common::PathText(folder.path / "machine.json");
  WriteText(folder.path / "machine.json",
            R"({"tests": {"CMemFaultDetect::CheckBoard": [{"throws": "library fault"}, 0]}})");
  const Drive drive =
      Run("click btnManagerCheck\nwait idle\ntext txtManagerModuleHeadline\nclick btnManagerCheck\n"
          "wait idle\ntext txtManagerModuleHeadline\n");
  ASSERT_THAT(drive.answers, SizeIs(6)) << drive.errors;
  EXPECT_EQ(drive.answers[2], Shows("IDS_MANAGER_MODULE_BROKEN_OFF(2)"));
  EXPECT_EQ(drive.answers[5], Shows("IDS_HARDWARE_DETECT_DOCTOR_INDEX_DESCRIPTION_OK"));
}

// Takes the processors for itself.
class Load {
 public:
  Load() {
    for (unsigned i = 0; i < 2 * std::thread::hardware_concurrency(); ++i)
      threads.emplace_back([this] {
        while (!ended) {
        }
      });
  }
  ~Load() {
    ended = true;
    for (std::thread& thread : threads) thread.join();
  }

 private:
  std::atomic<bool> ended = false;
  std::vector<std::thread> threads;
};

TEST_F(DriveTest, AScriptGivesTheSameAnswersWhateverTheLoad) {
  machine = MACHINE_FILES "failing.json";
  const std::string script =
      "enter\nclick btnSysdiagnoseScan\ntick 333\ndump\nwait idle\ndump\nsend 0x390020 00\n"
      "tick 500\nclick btnSysdiagnoseDetect\ntick 1234\ndump\nwait idle\ndump\nevents\nposted\n"
      "click btnSysdiagnoseDetectComplete\ntick 77\ndump\nwait idle\ndump\nevents\nposted\n";
  const Drive first = Run(script);
  ASSERT_THAT(first.answers, SizeIs(22)) << first.errors;
  EXPECT_THAT(first.answers, Each(StartsWith(R"({"ok":true)")));
  const Load load;
  constexpr int kRounds = 3;
  for (int round = 0; round < kRounds; ++round) {
    std::filesystem::remove_all(folder.path / "data");
    EXPECT_EQ(Run(script).answers, first.answers);
  }
}

// Width and height in the header of a picture.
std::string PictureSize(const std::string& png) {
  const auto number = [&png](std::size_t at) {
    std::uint32_t value = 0;
    for (const char byte : png.substr(at, 4)) value = value << 8 | static_cast<std::uint8_t>(byte);
    return std::to_string(value);
  };
  return png.size() < 24 ? "no picture" : number(16) + "x" + number(20);
}

TEST_F(DriveTest, PicturesHaveTheSizeOfTheWindowTimesItsScale) {
  const auto shot = [this](const char* name) {
    return "shot " + common::PathText(folder.path / name) + "\n";
  };
  const Drive drive = DrivenManager::Run("enter\n" + shot("a b.png") + "scale 2\n" + shot("2.png") +
                                         "scale 1.5\nsize 500 400\n" + shot("3.png") +
                                         shot("none/4.png") + shot(".") + "shot\n");
  ASSERT_THAT(drive.answers, SizeIs(10)) << drive.errors;
  EXPECT_EQ(PictureSize(ReadText(folder.path / "a b.png")), "1040x720");
  EXPECT_EQ(PictureSize(ReadText(folder.path / "2.png")), "2080x1440");
  EXPECT_EQ(PictureSize(ReadText(folder.path / "3.png")), "750x600");
  EXPECT_THAT(drive.answers[7], HasSubstr("4.png: "));
  for (std::size_t failed = 7; failed < 10; ++failed)
    EXPECT_THAT(drive.answers[failed], StartsWith(R"({"ok":false,"error":")"));
  EXPECT_EQ(drive.errors, "");
}

}  // namespace
