#include "platform/machine/live/smart_tool.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/machine/live/live_machine.h"
#include "tests/support/temporary_folder.h"

namespace {

using machine::TestCall;

/// The only folder that programs are looked for in, beside the system's own, while it lives.
class SearchPath {
 public:
  explicit SearchPath(const std::filesystem::path& folder) {
    before.resize(GetEnvironmentVariableW(L"PATH", nullptr, 0));
    before.resize(GetEnvironmentVariableW(L"PATH", before.data(), before.size()));
    SetEnvironmentVariableW(L"PATH", std::filesystem::absolute(folder).c_str());
  }
  ~SearchPath() { SetEnvironmentVariableW(L"PATH", before.c_str()); }
  SearchPath(const SearchPath&) = delete;
  SearchPath& operator=(const SearchPath&) = delete;

 private:
  std::wstring before;
};

TEST(SmartTool, IsAskedForAReportAboutTheDrive) {
  const SearchPath path(std::filesystem::path(SMARTCTL).parent_path());
  EXPECT_EQ(machine::AskSmartTool(TestCall::DiskSsdSmart, "/dev/pd0").code, 1U);
  EXPECT_EQ(machine::AskSmartTool(TestCall::DiskHddSmart, "/dev/pd10").code, 0U);
  EXPECT_EQ(machine::AskSmartTool(TestCall::DiskHddSmart, "/dev/pd2").code, 2U);
}

TEST(SmartTool, ThatIsNotInstalledLeavesTheDiskUnreadable) {
  const TemporaryFolder empty;
  const SearchPath path(empty.path);
  const machine::TestAnswer answer = machine::AskSmartTool(TestCall::DiskSsdSmart, "/dev/pd0");
  EXPECT_EQ(answer.code, 2U);
  EXPECT_EQ(answer.flags.size(), machine::kSsdFlagCount);
  EXPECT_EQ(machine::LiveMachine().Test(TestCall::DiskHddSmart, 0, -1).code, 2U);
}

}  // namespace
