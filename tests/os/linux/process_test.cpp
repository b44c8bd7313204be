#include "platform/os/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;

std::optional<os::ProcessResult> Shell(const std::string& script) {
  return os::RunProcess({"sh", "-c", script}, 20s);
}

TEST(RunProcess, GivesNothingForWhatASignalEnded) {
  EXPECT_FALSE(Shell("kill -9 $$"));
}

TEST(RunProcess, LetsNoneOfOurFilesThrough) {
  const int open = ::open("/dev/null", O_RDONLY);
  const auto result = Shell("ls /proc/self/fd | wc -l");
  ::close(open);
  ASSERT_TRUE(result);
  EXPECT_EQ(std::atoi(result->output.c_str()), 4);  // the standard ones and ls's own
}

TEST(RunProcess, AKilledProgramsChildrenAreGoneToo) {
  const std::string marker = testing::TempDir() + "child-" + std::to_string(getpid());
  EXPECT_FALSE(Shell("sleep 600 & echo $! > " + marker + "; cat /dev/zero"));
  const auto child = Shell("cat " + marker);
  ASSERT_TRUE(child);
  const int pid = std::atoi(child->output.c_str());
  ASSERT_GT(pid, 0);
  // The reaper of orphans may take its time; a zombie counts as gone.
  const std::string gone = "for i in $(seq 100); do grep -sq '^State:[[:space:]]*[^Z]' /proc/" +
                           std::to_string(pid) + "/status || exit 0; sleep 0.1; done; exit 1";
  const auto result = Shell(gone);
  unlink(marker.c_str());
  ASSERT_TRUE(result);
  EXPECT_EQ(result->exitStatus, 0);
}

}  // namespace
