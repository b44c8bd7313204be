#include "platform/os/process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>

namespace {

using namespace std::chrono_literals;

std::optional<os::ProcessResult> Shell(const std::string& script,
                                       std::chrono::milliseconds limit = 20s) {
  return os::RunProcess({"sh", "-c", script}, limit);
}

TEST(RunProcess, HandsBackOutputAndExitStatus) {
  const auto result = os::RunProcess({"printf", "%s|", "a b", "$HOME", ""}, 20s);
  ASSERT_TRUE(result);
  EXPECT_EQ(result->output, "a b|$HOME||");
  EXPECT_EQ(result->exitStatus, 0);

  const auto failed = Shell("echo seen; echo hidden >&2; exit 3");
  ASSERT_TRUE(failed);
  EXPECT_EQ(failed->output, "seen\n");
  EXPECT_EQ(failed->exitStatus, 3);
}

TEST(RunProcess, GivesNothingForWhatDidNotRunToItsEnd) {
  EXPECT_FALSE(os::RunProcess({}, 20s));
  EXPECT_FALSE(os::RunProcess({"no-such-program-anywhere"}, 20s));
  EXPECT_FALSE(Shell("kill -9 $$"));
}

TEST(RunProcess, TakesFourMebibytesAndNoMore) {
  const auto full = Shell("head -c 4194304 /dev/zero");
  ASSERT_TRUE(full);
  EXPECT_EQ(full->output.size(), 4194304U);
  EXPECT_FALSE(Shell("head -c 4194305 /dev/zero"));
  EXPECT_FALSE(Shell("cat /dev/zero"));
}

TEST(RunProcess, HasNoInputAndNoneOfOurFiles) {
  const int open = ::open("/dev/null", O_RDONLY);
  const auto result = Shell("read line && exit 7; ls /proc/self/fd | wc -l");
  ::close(open);
  ASSERT_TRUE(result);
  EXPECT_EQ(std::atoi(result->output.c_str()), 4);  // the standard ones and ls's own
}

// A tool that hangs on a broken disk must not hang the diagnosis, whether it keeps its output open,
// closes it, or left the hanging to a child of its own.
TEST(RunProcess, KillsWhatOutlivesItsLimit) {
  for (const char* script : {"echo begun; sleep 600", "exec >&-; sleep 600", "sleep 600 & wait"}) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_FALSE(Shell(script, 200ms)) << script;
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 60s) << script;
  }
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
