// The manager in a real window on a screen of its own, used by pointer and keyboard.

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <map>
#include <thread>
#include <utility>

#include "common/path_text.h"
#include "tests/manager/drive.h"
#include "tests/manager/linux/virtual_screen.h"
#include "tests/manager/shown_window.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;

constexpr const char* kTitle = "Laptop manager";
constexpr int kWidth = 1040;
constexpr int kHeight = 720;

// The choices at the foot of the home page stand in a window alone.
constexpr int kComparedHeight = kHeight - 56;

// Letters may be smoothed a little otherwise.
constexpr double kAlike = 0.0005;

bool Becomes(const std::function<bool()>& condition, std::chrono::seconds limit = 60s) {
  const auto end = std::chrono::steady_clock::now() + limit;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(20ms);
  }
  return true;
}

struct Step {
  std::string command;  // of the driven manager
  std::string state;    // that it leads to
  int x = 0;            // where a click goes
  int y = 0;
};

void FindPlace(Step& step, const std::string& dumped) {
  if (!step.command.starts_with("click ")) return;
  const ShownWindow window(dumped);
  const auto found = window.Find(step.command.substr(6));
  ASSERT_FALSE(found.empty()) << step.command;
  const auto& root = window.Root();
  const auto& control = *found[0];
  step.x = control["x"].GetInt() + control["w"].GetInt() / 2 + (kWidth - root["w"].GetInt()) / 2;
  step.y = control["y"].GetInt() + control["h"].GetInt() / 2 + (kHeight - root["h"].GetInt()) / 2;
}

// The head of the window is neither black as an empty screen nor white.
bool IsDark(const Picture& picture) {
  const std::uint32_t dot = picture.dots.at(static_cast<std::size_t>(kWidth) * 20 + 5);
  return dot != 0 && (dot & 255) < 100;
}

class WindowJourneyTest : public testing::Test {
 protected:
  WindowJourneyTest() {
    std::filesystem::create_directories(folder.path / "data");
    WriteText(folder.path / "data/manager.json",
              R"({"window": {"x": 0, "y": 0, "width": 1040, "height": 720}, "theme": "light"})");
  }

  std::filesystem::path PictureOf(const std::string& state) const {
    return folder.path / (state + ".png");
  }

  std::vector<std::string> Words(const std::string& machine) const {
    return {APP_DIR "/laptop-manager",
            "--machine",
            machine,
            "--data-dir",
            common::PathText(folder.path / "data"),
            "--lang",
            "en-US"};
  }

  // What the driven manager shows at each step, and where.
  void DriveThrough(const std::string& machine, std::vector<Step>& steps) {
    std::filesystem::create_directories(folder.path / "driven");
    std::string script = "shot " + common::PathText(PictureOf("home")) + "\n";
    for (const Step& step : steps)
      script += "dump\n" + step.command + "\nwait idle\nshot " +
                common::PathText(PictureOf(step.state)) + "\n";
    const Drive drive = RunDrive(machine, folder.path / "driven", script, {}, "en-US");
    ASSERT_EQ(drive.exitStatus, 0) << testing::PrintToString(drive.answers) << drive.errors;
    for (std::size_t index = 0; index < steps.size(); ++index)
      ASSERT_NO_FATAL_FAILURE(FindPlace(steps[index], drive.answers.at(4 * index + 1)));
  }

  void Do(const Step& step) const {
    if (step.command.starts_with("key "))
      screen.Press(kKeys.at(step.command.substr(4)));
    else
      screen.Click(step.x, step.y);
  }

  void ExpectToSee(const std::string& state) const {
    const Picture expected = ReadPicture(PictureOf(state));
    Picture seen;
    const bool alike = Becomes([&] {
      seen = screen.Look();
      return DifferenceOf(seen, expected, kComparedHeight) < kAlike;
    });
    const char* const kept = std::getenv("WINDOW_PICTURES");
    WritePicture(seen, (kept != nullptr ? std::filesystem::path(kept) : folder.path) /
                           ("window-" + state + ".png"));
    EXPECT_TRUE(alike) << state << ": " << DifferenceOf(seen, expected, kComparedHeight)
                       << " of the dots differ";
  }

  static inline const std::map<std::string, std::string> kKeys = {
      {"tab", "Tab"}, {"enter", "Return"}, {"escape", "Escape"}};

  const TemporaryFolder folder;
  const VirtualScreen screen{kWidth, kHeight, folder.path};
};

TEST_F(WindowJourneyTest, FromHomeToScanTestRepairUploadAndHistory) {
  const std::string machine = MACHINE_FILES "failing.json";
  std::vector<Step> steps = {{"click btnManagerCheck", "checked"},
                             {"click optManagerTab[1]", "untested"},
                             {"click btnSysdiagnoseScan", "scanned"},
                             {"click btnSysdiagnoseDetect", "result"},
                             {"key tab", "first-tab"},
                             {"key tab", "second-tab"},
                             {"key tab", "link"},
                             {"key enter", "upload"},
                             {"click btnUpload", "uploaded"},
                             {"click btnSysdiagnoseDetectComplete", "restart"},
                             {"click btnCancel", "repair-failed"},
                             {"click btnSysdiagnoseDetectBack", "repaired"},
                             {"click btnSysdiagnoseDetectComplete", "history"}};
  ASSERT_NO_FATAL_FAILURE(DriveThrough(machine, steps));
  RunningProgram manager(Words(machine), folder.path / "errors");
  ExpectToSee("home");
  for (const Step& step : steps) {
    Do(step);
    ExpectToSee(step.state);
  }
  manager.Interrupt();
  EXPECT_EQ(manager.Wait(), 0) << ReadText(folder.path / "errors");
  EXPECT_EQ(StoredRows(folder.path), StoredRows(folder.path / "driven"));
}

// A test that never comes back: the window lives on, and is closed all the same.
TEST_F(WindowJourneyTest, AHungLibraryKeepsNeitherTheWindowNorItsEnd) {
  const std::string healthy = MACHINE_FILES "healthy.json";
  for (const auto& each : {folder.path, folder.path / "driven"})
    RunTerminal({"--machine", healthy, "run"}, each);
  const std::string machine = common::PathText(folder.path / "machine.json");
  WriteText(folder.path / "machine.json",
            R"({"tests": {"CMemFaultDetect::CheckBoard": {"delayMs": 600000}},)" +
                ReadText(healthy).substr(1));
  std::vector<Step> steps = {{"click btnManagerCheck", "checked"},
                             {"click optManagerTab[1]", "history"}};
  ASSERT_NO_FATAL_FAILURE(DriveThrough(healthy, steps));
  RunningProgram manager(Words(machine), folder.path / "errors");
  ExpectToSee("home");
  Do(steps[0]);
  Do(steps[1]);
  ExpectToSee("history");

  const auto asked = std::chrono::steady_clock::now();
  screen.CloseWindows(kTitle);
  EXPECT_EQ(manager.Wait(), 0) << ReadText(folder.path / "errors");
  EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s + 3s) << "the rest is for a busy machine";
  EXPECT_TRUE(ReadText(folder.path / "data/log/sysdiagnose.log").ends_with('\n'));
  EXPECT_EQ(StoredRows(folder.path).size(), 1u);
}

TEST_F(WindowJourneyTest, ASecondStartShowsTheFirstAndEnds) {
  const std::string machine = MACHINE_FILES "healthy.json";
  std::vector<Step> none;
  ASSERT_NO_FATAL_FAILURE(DriveThrough(machine, none));
  RunningProgram first(Words(machine), folder.path / "errors");
  ExpectToSee("home");
  RunningProgram second(Words(machine), folder.path / "second-errors");
  EXPECT_EQ(second.Wait(), 0);
  EXPECT_EQ(ReadText(folder.path / "second-errors"), "");
  EXPECT_FALSE(first.HasEnded());
  screen.CloseWindows(kTitle);
  EXPECT_EQ(first.Wait(), 0);
}

TEST_F(WindowJourneyTest, WhatWasChosenHoldsAtTheNextStart) {
  const std::string machine = MACHINE_FILES "healthy.json";
  std::vector<Step> none;
  ASSERT_NO_FATAL_FAILURE(DriveThrough(machine, none));
  const Picture light = ReadPicture(PictureOf("home"));
  std::vector<std::string> dark = Words(machine);
  dark.insert(dark.end(), {"--theme", "dark"});
  Picture seen;
  for (const auto& words : {dark, Words(machine)}) {
    RunningProgram manager(words, folder.path / "errors");
    ASSERT_TRUE(Becomes([&] {
      const Picture now = screen.Look();
      return std::exchange(seen, now).dots == now.dots && IsDark(now);
    })) << "the window is not dark";
    screen.CloseWindows(kTitle);
    EXPECT_EQ(manager.Wait(), 0);
  }
  EXPECT_THAT(ReadText(folder.path / "data/manager.json"), HasSubstr("\"dark\""));
}

TEST(WindowTest, WithoutADisplayThereIsOneClearLine) {
  const TemporaryFolder folder;
  unsetenv("DISPLAY");
  unsetenv("WAYLAND_DISPLAY");
  RunningProgram manager({APP_DIR "/laptop-manager", "--machine", MACHINE_FILES "healthy.json",
                          "--data-dir", common::PathText(folder.path / "data")},
                         folder.path / "errors");
  EXPECT_EQ(manager.Wait(), 4);
  const std::string errors = ReadText(folder.path / "errors");
  EXPECT_THAT(errors, HasSubstr("no window can be shown: there is no display"));
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

}  // namespace
