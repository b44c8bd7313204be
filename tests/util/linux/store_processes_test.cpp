#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <set>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "tests/support/temporary_folder.h"

namespace {

// A running store_writer.
class Writer {
 public:
  Writer(const std::filesystem::path& folder, std::int64_t first, std::int64_t count) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, ends[0]);
    std::string arguments[] = {STORE_WRITER, folder.string(), std::to_string(first),
                               std::to_string(count)};
    char* vector[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                      arguments[3].data(), nullptr};
    const int failed = posix_spawn(&process, STORE_WRITER, &actions, nullptr, vector, environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    output = ends[0];
    if (failed != 0) throw std::runtime_error("no " STORE_WRITER);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;
  ~Writer() { close(output); }

  void Kill() { kill(process, SIGKILL); }

  // The rows acknowledged until it ends, and how it ended.
  std::set<std::int64_t> Acknowledged(int& status) {
    std::string text;
    char bytes[4096];
    for (ssize_t length; (length = read(output, bytes, sizeof bytes)) > 0;)
      text.append(bytes, static_cast<std::size_t>(length));
    waitpid(process, &status, 0);
    text.erase(text.rfind('\n') + 1);  // a line cut off acknowledges nothing
    std::istringstream lines(text);
    return {std::istream_iterator<std::int64_t>(lines), {}};
  }

 private:
  pid_t process = 0;
  int output = -1;
};

std::multiset<std::int64_t> SavedRows(const std::filesystem::path& folder) {
  const SQLite::Database store((folder / "store.db").string());
  SQLite::Statement select(store, "SELECT SecondTime FROM TABLE_HARDWARE_DIAGNOSE");
  std::multiset<std::int64_t> rows;
  while (select.executeStep()) rows.insert(select.getColumn(0).getInt64());
  return rows;
}

TEST(StoreProcesses, TwoMayCreateOneStoreAndWriteToIt) {
  for (int round = 0; round < 10; ++round) {
    const TemporaryFolder folder;
    Writer one(folder.path, 0, 20);
    Writer two(folder.path, 1000, 20);
    int status = 0;
    EXPECT_EQ(one.Acknowledged(status).size(), 20u);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(two.Acknowledged(status).size(), 20u);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(SavedRows(folder.path).size(), 40u);
  }
}

TEST(StoreProcesses, AKilledOneLosesNoAcknowledgedRow) {
  constexpr int kRounds = 200;
  constexpr std::int64_t kRowsPerRound = 1'000'000;
  const TemporaryFolder folder;
  std::mt19937 random(std::random_device{}());
  std::uniform_int_distribution<int> milliseconds(5, 80);
  std::set<std::int64_t> acknowledged;
  for (int round = 0; round < kRounds; ++round) {
    Writer writer(folder.path, round * kRowsPerRound, kRowsPerRound);
    // The moment of the kill is what is tested here, so this does sleep.
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(random)));
    writer.Kill();
    int status = 0;
    acknowledged.merge(writer.Acknowledged(status));
    ASSERT_TRUE(WIFSIGNALED(status)) << "round " << round << " ended by itself";
  }

  ASSERT_GT(acknowledged.size(), static_cast<std::size_t>(kRounds));
  const std::multiset<std::int64_t> saved = SavedRows(folder.path);
  for (const std::int64_t second : acknowledged) EXPECT_EQ(saved.count(second), 1u) << second;
  EXPECT_LE(saved.size(), acknowledged.size() + kRounds) << "at most one unacknowledged per kill";
  SQLite::Database store((folder.path / "store.db").string());
  EXPECT_EQ(store.execAndGet("PRAGMA integrity_check").getString(), "ok");
}

}  // namespace
