#include <gmock/gmock.h>
#include <signal.h>

#include <chrono>
#include <optional>
#include <thread>

#include "common/path_text.h"
#include "tests/cli/program.h"

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The service that was started for a data folder; 0 when there is none.
pid_t ServiceOf(const fs::path& data) {
  for (const auto& entry : fs::directory_iterator("/proc")) {
    const std::string words = ReadText(entry.path() / "cmdline");
    if (words.find("companion-service") != words.npos && words.find(data.string()) != words.npos)
      return std::stoi(entry.path().filename().string());
  }
  return 0;
}

// The terminal program at the moment when the service packs what takes its time.
class EndWhilePacking : public testing::Test {
 protected:
  EndWhilePacking() {
    std::string log;
    while (log.size() < 32 << 20) log += "a line of a log that takes its time to be packed\n";
    WriteText(data / "log/old.log", log);
    logs.emplace(std::vector<std::string>{"--data-dir", common::PathText(data), "logs", "--upload",
                                          "--socket", common::PathText(folder.path / "a.sock")});
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (!fs::exists(data / "outbox/.masked") && std::chrono::steady_clock::now() < deadline)
      std::this_thread::yield();
  }

  const TemporaryFolder folder;
  const fs::path data = folder.path / "data";
  std::optional<Program> logs;
};

TEST_F(EndWhilePacking, ThatOfTheServiceIsTold) {
  const pid_t service = ServiceOf(data);
  ASSERT_GT(service, 0);
  kill(service, SIGKILL);

  const Outcome outcome = logs->Wait();
  EXPECT_EQ(outcome.exitStatus, 2);
  EXPECT_THAT(outcome.errors,
              testing::HasSubstr("the companion service ended before the logs were packed"));
}

TEST_F(EndWhilePacking, ThatOfTheTerminalProgramLeavesNothing) {
  ASSERT_TRUE(fs::exists(data / "outbox/.masked"));
  logs->Interrupt();
  EXPECT_EQ(logs->Wait().exitStatus, 3);
  EXPECT_TRUE(fs::is_empty(data / "outbox"));
}

}  // namespace
