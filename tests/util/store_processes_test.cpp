#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <thread>

#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace {

// A running store_writer.
class Writer {
 public:
  Writer(const std::filesystem::path& folder, std::int64_t first, std::int64_t count)
      : program({STORE_WRITER, folder.string(), std::to_string(first), std::to_string(count)},
                errors.path / "errors") {}

  void WaitForARow() {
    while (text.find('\n') == std::string::npos && program.Read(text)) {
    }
  }

  void Kill() { program.Kill(); }

  // The rows acknowledged until it ends, and how it ended.
  std::set<std::int64_t> Acknowledged(std::optional<int>& exitStatus) {
    while (program.Read(text)) {
    }
    exitStatus = program.Wait();
    text.erase(text.rfind('\n') + 1);  // a line cut off acknowledges nothing
    std::istringstream lines(text);
    return {std::istream_iterator<std::int64_t>(lines), {}};
  }

 private:
  TemporaryFolder errors;
  RunningProgram program;
  std::string text;  // its output so far
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
    std::optional<int> status;
    EXPECT_EQ(one.Acknowledged(status).size(), 20u);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(two.Acknowledged(status).size(), 20u);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(SavedRows(folder.path).size(), 40u);
  }
}

TEST(StoreProcesses, SeveralMayMeetTheDamageAtOnce) {
  for (int round = 0; round < 10; ++round) {
    const TemporaryFolder folder;
    WriteText(folder.path / "store.db", "no store, and long enough to tell");
    std::vector<std::unique_ptr<Writer>> writers;
    for (int i = 0; i < 4; ++i)
      writers.push_back(std::make_unique<Writer>(folder.path, 1000 * i, 10));
    for (const auto& writer : writers) {
      std::optional<int> status;
      EXPECT_EQ(writer->Acknowledged(status).size(), 10U);
      EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(SavedRows(folder.path).size(), 40U);
    int setAside = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
      if (entry.path().filename().string().find(".damaged-") == std::string::npos) continue;
      ++setAside;
      EXPECT_EQ(ReadText(entry.path()), "no store, and long enough to tell");
    }
    EXPECT_EQ(setAside, 1);
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
    if (round % 2 == 0) writer.WaitForARow();
    // The moment of the kill is what is tested here, so this does sleep.
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds(random)));
    writer.Kill();
    std::optional<int> status;
    acknowledged.merge(writer.Acknowledged(status));
    ASSERT_FALSE(status) << "round " << round << " ended by itself";
  }

  ASSERT_GE(acknowledged.size(), static_cast<std::size_t>(kRounds / 2));
  const std::multiset<std::int64_t> saved = SavedRows(folder.path);
  for (const std::int64_t second : acknowledged) EXPECT_EQ(saved.count(second), 1u) << second;
  EXPECT_LE(saved.size(), acknowledged.size() + kRounds) << "at most one unacknowledged per kill";
  SQLite::Database store((folder.path / "store.db").string());
  EXPECT_EQ(store.execAndGet("PRAGMA integrity_check").getString(), "ok");
}

}  // namespace
