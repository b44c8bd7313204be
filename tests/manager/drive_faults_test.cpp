#include <algorithm>

#include "common/path_text.h"
#include "tests/manager/driven_manager.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kNoWindow = R"({"ok":true,"windows":[]})";
constexpr const char* kWindow = R"({"ok":true,"windows":["DriveWnd"]})";

// With a plugin that does what a script, and before that the product's shelf, asks for.
class DriveFaultsTest : public DrivenManager {
 protected:
  DriveFaultsTest() {
    machine = common::PathText(folder.path / "machine.json");
    Ask({});
  }

  // For faults, from the next start on.
  void Ask(const std::vector<std::string>& faults) const {
    std::string keys;
    for (const std::string& fault : faults) keys += (keys.empty() ? "\"" : ", \"") + fault + '"';
    WriteText(folder.path / "machine.json", "{\"shelf\": [" + keys + "]}");
  }

  // In the tab of the plugin, to which the first answer belongs.
  Drive Run(const std::string& script, const std::string& plugin = DRIVE_MODULE) const {
    Drive drive = DrivenManager::Run(
        "enter\n" + script, {"--simple-text", "--plugin", plugin, "--wait-limit", waitLimit});
    if (!drive.answers.empty()) drive.answers.erase(drive.answers.begin());
    return drive;
  }

  std::string Log() const { return ReadText(folder.path / "data/log/sysdiagnose.log"); }

  void ExpectNotLoaded(const Drive& drive, const std::string& reason) const {
    EXPECT_EQ(drive.exitStatus, 2);
    EXPECT_THAT(drive.answers, IsEmpty());
    EXPECT_THAT(drive.errors, HasSubstr(reason));
    EXPECT_EQ(std::count(drive.errors.begin(), drive.errors.end(), '\n'), 1) << drive.errors;
  }

  std::string waitLimit = "20000";
};

TEST_F(DriveFaultsTest, WhatAPluginThrowsAtItsStartIsOneMessage) {
  const struct {
    std::vector<std::string> faults;
    const char* reason;
  } cases[] = {
      {{"throw x3CreateObject"}, ": x3CreateObject threw: as asked"},
      {{"throw a number in x3CreateObject"},
       ": x3CreateObject threw: an exception of unknown type"},
      {{"no class"}, ": it has no class that contributes pages"},
      {{"throw PluginKey"}, ": PluginKey threw: as asked"},
      {{"throw PluginKey", "throw Release"}, ": PluginKey threw: as asked"},
      {{"throw CreateUI"}, ": CreateUI threw: as asked"},
      {{"throw a number in CreateUI"}, ": CreateUI threw: an exception of unknown type"},
      {{"throw CreateUI behind its page", "throw in a hook"}, ": CreateUI threw: as asked"},
      {{"refuse CreateUI"}, ": CreateUI failed"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.reason);
    Ask(each.faults);
    ExpectNotLoaded(Run("enter\n"), each.reason);
  }
}

TEST_F(DriveFaultsTest, AMissingExportIsNamed) {
  const std::string module = ReadText(DRIVE_MODULE);
  for (const std::string name : {"x3InitializePlugin", "x3UninitializePlugin", "x3InitPlugin",
                                 "x3FreePlugin", "x3InternalCreate", "x3CreateObject"}) {
    SCOPED_TRACE(name);
    std::string other = module;
    for (auto at = other.find(name); at != std::string::npos; at = other.find(name, at))
      other[at + name.size() - 1] = '_';
    WriteText(folder.path / "other.plugin", other);
    ExpectNotLoaded(Run("enter\n", common::PathText(folder.path / "other.plugin")),
                    ": no " + name + " is exported");
  }
}

TEST_F(DriveFaultsTest, WhatItThrowsLaterIsLoggedAndTheDriveGoesOn) {
  Ask({"throw OnCancel", "throw in a hook"});
  const Drive drive =
      Run("enter\nclick btnThrow\nclick btnThrowNumber\nclick btnThrowElsewhere\nsend 0x12\n"
          "click btnWindow\nkey escape\nwindows\nunload\nwindows\n");
  EXPECT_THAT(drive.answers,
              ElementsAre(kOk, kOk, kOk, kOk, kOk, kOk, kOk, kWindow, kOk, kNoWindow));
  EXPECT_EQ(drive.exitStatus, 0) << drive.errors;
  const std::string log = Log();
  for (const char* reason :
       {"failed: a click", "failed: an exception of unknown type", "a task", "failed: a closure",
        "a handler", "the cancel of a window failed", "failed: the page goes"})
    EXPECT_THAT(log, HasSubstr(reason));
}

TEST_F(DriveFaultsTest, APluginThatThrowsWhenItIsGivenBackGoesAllTheSame) {
  Ask({"throw Release"});
  const Drive drive = Run("unload\nenter\nunload");
  ASSERT_THAT(drive.answers, SizeIs(3)) << drive.errors;
  EXPECT_THAT(drive.answers[0], HasSubstr(": Release threw: as asked"));
  EXPECT_EQ(drive.answers[1], Failed("there is no tab"));
  EXPECT_EQ(drive.answers[2], Failed("the plugin is not loaded"));
  EXPECT_EQ(drive.exitStatus, 2);
}

TEST_F(DriveFaultsTest, CommandsGoToTheTopmostWindow) {
  const Drive drive =
      Run("click btnWindow\nwindows\ntext txtWindow\ntext txtState\nclick btnWindow\nwindows\n"
          "key escape\nwindows\nclick btnClose\nwindows\ntext txtState");
  EXPECT_THAT(drive.answers, ElementsAre(kOk, kWindow, Shows("open"), StartsWith(R"({"ok":false)"),
                                         kOk, R"({"ok":true,"windows":["DriveWnd","DriveWnd"]})",
                                         kOk, kWindow, kOk, kNoWindow, Shows("result 1")));
}

TEST_F(DriveFaultsTest, TheClockGoesFromOneMomentToTheNextUntilAWindowOpens) {
  const Drive drive =
      Run("click btnPaced\ntick 99\ntext txtPaced\ntick 1\ntext txtPaced\ntick 200\ntext txtPaced\n"
          "wait txtPaced 5\nwait txtPaced 6\nwait txtNone 6\n"
          "click btnPaced\nclick btnLaterWindow\ntick 10000\nwindows\nkey escape\nwindows\n"
          "text txtPaced\nwait idle\ntext txtPaced");
  EXPECT_THAT(
      drive.answers,
      ElementsAre(kOk, kOk, Shows(""), kOk, Shows("1"), kOk, Shows("3"), kOk,
                  Failed(R"(waited for txtPaced to show \"6\"; it shows \"5\", and nothing is due )"
                         "any more"),
                  Failed(R"(waited for txtNone to show \"6\"; it is not there, and nothing is due )"
                         "any more"),
                  kOk, kOk, kOk, kWindow, kOk, kNoWindow, Shows("3"), kOk, Shows("5")));
}

TEST_F(DriveFaultsTest, MessagesAreAnsweredAndPostedOnesAreTold) {
  const std::string body(std::size_t{1} << 20, '7');
  const Drive drive =
      Run("send 16 0a0B\nsend 0x10\nsend 0x99 01\nsend 0x10 " + body + "\nsend 0x10 " +
          std::string((std::size_t{2} << 20) + 2, '7') + "\nposted\nclick btnPost\nposted\nposted");
  ASSERT_THAT(drive.answers, SizeIs(9)) << drive.errors;
  EXPECT_EQ(drive.answers[0], R"({"ok":true,"answer":"0a0b"})");
  EXPECT_EQ(drive.answers[1], R"({"ok":true,"answer":""})");
  EXPECT_EQ(drive.answers[2], kOk);
  EXPECT_EQ(drive.answers[3], R"({"ok":true,"answer":")" + body + "\"}");
  EXPECT_EQ(drive.answers[4],
            Failed("a body of 1048577 bytes, which is more than a message holds"));
  EXPECT_EQ(drive.answers[7],
            R"({"ok":true,"posted":[{"message":"0x77","reply":"0x78","body":"0102ff"}]})");
  EXPECT_EQ(drive.answers[8], R"({"ok":true,"posted":[]})");
}

TEST_F(DriveFaultsTest, EachMistakeIsOneAnswer) {
  const char* const mistakes[] = {"click btnHidden",
                                  "click btnDisabled",
                                  "select txtState on",
                                  "select btnPost maybe",
                                  "select btnPost",
                                  "link txtState",
                                  "activate btnHidden",
                                  "click DriveTab/btnNone",
                                  "click btnPost[7]",
                                  "click btnPost[x]",
                                  "key return",
                                  "tick",
                                  "tick 1.5",
                                  "tick 99999999999999999999",
                                  "wait txtState",
                                  "text",
                                  "dump txtNone",
                                  "windows all",
                                  "send",
                                  "send 0x",
                                  "send 0x100000000",
                                  "send 1 0x12",
                                  "size 5",
                                  "size 0 5",
                                  "size 5 99999",
                                  "scale 0",
                                  "scale 1x",
                                  "scale nan",
                                  "theme blue",
                                  "shot a.png",
                                  "\xFF\xFE",
                                  "CLICK btnPost"};
  std::string script;
  for (const char* const mistake : mistakes) script += std::string(mistake) + "\r\n";
  const Drive drive =
      Run(script + std::string(1, '\0') + "\n" + std::string(1 << 20, 'x') + "\ntext txtState");
  ASSERT_THAT(drive.answers, SizeIs(std::size(mistakes) + 3)) << drive.errors;
  EXPECT_EQ(drive.answers.back(), Shows("new"));
  for (std::size_t index = 0; index + 1 < drive.answers.size(); ++index) {
    SCOPED_TRACE(index < std::size(mistakes) ? mistakes[index] : "");
    EXPECT_THAT(drive.answers[index], StartsWith(R"({"ok":false,"error":")"));
    EXPECT_LT(drive.answers[index].size(), 200u);
  }
}

// While windows are open over each other, opened by a click, by a tick and by a closure, work is
// under way and messages arrive.
TEST_F(DriveFaultsTest, UnloadEndsWhateverGoesOn) {
  for (const std::string open :
       {"click btnLaterWindow\nwindows\n", "click btnWindow\nclick btnWindow\n",
        "click btnLaterWindow\ntick 5000\n", "click btnClosureWindow\nclick btnWindow\n",
        "click btnThrowElsewhere\nsend 0x10 01\n"}) {
    SCOPED_TRACE(open);
    const Drive drive = Run("click btnPaced\nclick btnPost\n" + open + "unload\nenter\nwindows");
    ASSERT_THAT(drive.answers, SizeIs(7)) << drive.errors;
    EXPECT_EQ(drive.answers[4], kOk);
    EXPECT_EQ(drive.answers[5], Failed("there is no tab"));
    EXPECT_EQ(drive.answers[6], kNoWindow);
  }
}

TEST_F(DriveFaultsTest, AScriptThatEndsInAWindowEndsAsWell) {
  for (const char* const end : {"", "\nquit\nwindows"}) {
    const Drive drive = Run("click btnPaced\nclick btnClosureWindow" + std::string(end));
    EXPECT_THAT(drive.answers, SizeIs(std::string(end).empty() ? 2 : 3)) << drive.errors;
    EXPECT_THAT(drive.answers, testing::Each(kOk));
    EXPECT_EQ(drive.exitStatus, 0) << drive.errors;
  }
}

TEST_F(DriveFaultsTest, WhatDoesNotEndIsSaidAtTheLimitAndTheProgramEnds) {
  waitLimit = "200";
  const struct {
    const char* command;
    const char* error;
    const char* atTheEnd;
  } cases[] = {{"click btnRestless\nwait idle", "waited for nothing to be due; something always is",
                "work of the plugin does not end"},
               {"click btnRestless\nwait txtState old",
                R"(waited for txtState to show \"old\"; it shows )"
                R"(\"new\")",
                "work of the plugin does not end"},
               {"click btnRestless\ntick 1000000000", "the time was not over within the limit",
                "work of the plugin does not end"},
               {"windows\nclick btnStuck", "a worker neither ends nor rests",
                "a worker neither ends nor rests"},
               {"windows\nsend 0x11", "a message handler does not return, or posts without end",
                "a message handler does not return, or posts without end"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.command);
    const Drive drive = Run(std::string(each.command) + "\nunload");
    ASSERT_THAT(drive.answers, SizeIs(3)) << drive.errors;
    EXPECT_EQ(drive.answers[1], Failed(each.error));
    EXPECT_EQ(drive.answers[2], Failed(each.atTheEnd));
    EXPECT_EQ(drive.exitStatus, 2);
  }

  const Drive endless = Run("click btnEndless\nunload\nwindows");
  EXPECT_THAT(endless.answers, ElementsAre(Failed("closures or timers make each other without end"),
                                           kOk, kNoWindow));
}

}  // namespace
