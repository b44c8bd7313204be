#include <cstdlib>

#include "common/path_text.h"
#include "tests/manager/driven_manager.h"

namespace {

// Stands in for the tool that restarts the computer, which must not happen here.
class RestartTest : public DrivenManager {
 protected:
  RestartTest() {
    machine = MACHINE_FILES "failing.json";
    const auto tool = folder.path / "systemctl";
    WriteText(tool, "#!/bin/sh\necho \"$@\" >" + common::PathText(folder.path / "asked") + "\n");
    std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
    setenv("PATH", (common::PathText(folder.path) + ":" + searchPath).c_str(), 1);
  }
  ~RestartTest() override { setenv("PATH", searchPath.c_str(), 1); }

  Drive RunRepair(std::vector<std::string> options) const {
    options.emplace_back("--simple-text");
    return Run(
        "enter\nclick btnSysdiagnoseScan\nwait idle\nclick btnSysdiagnoseDetect\nwait idle\n"
        "click btnSysdiagnoseDetectComplete\nwait idle\nclick btnRestart\ntext txtManagerNotice\n",
        options);
  }

  const std::string searchPath = std::getenv("PATH");
};

TEST_F(RestartTest, TheComputerIsRestartedOnlyByAManagerThatMay) {
  const Drive told = RunRepair({});
  ASSERT_THAT(told.answers, testing::SizeIs(9)) << told.errors;
  EXPECT_EQ(told.answers.back(), Shows("IDS_MANAGER_RESTART_DRY"));
  EXPECT_FALSE(std::filesystem::exists(folder.path / "asked"));

  const Drive asked = RunRepair({"--allow-restart"});
  ASSERT_THAT(asked.answers, testing::SizeIs(9)) << asked.errors;
  EXPECT_EQ(asked.answers.back(), Shows("IDS_MANAGER_RESTART_ASKED"));
  EXPECT_EQ(ReadText(folder.path / "asked"), "reboot\n");
}

TEST_F(RestartTest, ASystemThatCannotBeAskedIsSaid) {
  setenv("PATH", common::PathText(folder.path / "nothing").c_str(), 1);
  const Drive drive = RunRepair({"--allow-restart"});
  ASSERT_THAT(drive.answers, testing::SizeIs(9)) << drive.errors;
  EXPECT_EQ(drive.answers.back(), Shows("IDS_MANAGER_RESTART_FAILED"));
}

}  // namespace
