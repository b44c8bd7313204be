#include "tests/manager/driven_manager.h"

namespace {

using testing::Contains;
using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

// All threads of the manager and the plugin at work, for the thread sanitizer too: what it finds
// stands in the error output and in the exit status.
TEST_F(DrivenManager, FromScanToDetectionToHistory) {
  machine = MACHINE_FILES "failing.json";
  const Drive drive = Run(
      "enter\nclick btnSysdiagnoseScan\nwait idle\nsend 0x390020 00\nclick btnSysdiagnoseDetect\n"
      "tick 2000\nsend 0x200009\nwait idle\nposted\nclick btnSysdiagnoseDetectComplete\n"
      "wait idle\ndump\nevents\nunload\n",
      {"--simple-text"});
  EXPECT_THAT(drive.answers, Each(StartsWith(R"({"ok":true)")));
  EXPECT_THAT(drive.answers, Contains(HasSubstr(R"("message":"0x20000D")"))) << "the run's summary";
  EXPECT_THAT(drive.answers, Contains(HasSubstr("\"620000003\""))) << "the run was asked for";
  EXPECT_EQ(drive.exitStatus, 0);
  EXPECT_EQ(drive.errors, "");
}

}  // namespace
