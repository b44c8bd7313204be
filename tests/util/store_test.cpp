#include "platform/util/store.h"
#include "common/path_text.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include <variant>

#include "platform/os/paths.h"
#include "tests/support/history_row.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/test_log.h"

namespace {

using linb::any;
using linb::any_cast;
using testing::HasSubstr;
using util::Store;

class StoreTest : public testing::Test {
 protected:
  std::vector<Store::Row> Get(const std::string& query) {
    std::vector<Store::Row> rows;
    store.Get(query, rows);
    return rows;
  }

  std::int64_t RowCount() {
    return any_cast<std::int64_t>(Get("SELECT COUNT(*) FROM TABLE_HARDWARE_DIAGNOSE")[0][0]);
  }

  TemporaryFolder folder;
  Store store{folder.path};
};

TEST_F(StoreTest, GivesRowsBackByCellAndByColumnNameAndKeepsThemWhenReopened) {
  Store::Row row = HistoryRow(5'000'000'000);
  row[14] = std::string("d\u00e9j\u00e0 \0 vu", 11);
  store.Put(kHistoryTable, row);
  store.Put(kHistoryTable, HistoryRow(5'000'000'000));
  store.Put(kHistoryTable, HistoryRow(7));

  Store reopened(folder.path);
  std::vector<Store::Row> rows{{any(1)}};
  reopened.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE WHERE SecondTime > 7 ORDER BY rowid", rows);
  ASSERT_EQ(rows.size(), 3u) << "one row was there, two share their second";
  ASSERT_EQ(rows[1].size(), 17u);
  EXPECT_EQ(any_cast<std::int64_t>(rows[1][0]), 0);
  EXPECT_EQ(any_cast<std::int64_t>(rows[1][11]), -1);
  EXPECT_EQ(any_cast<std::string>(rows[1][14]), any_cast<std::string>(row[14]));
  EXPECT_EQ(any_cast<std::int64_t>(rows[1][16]), 5'000'000'000);

  const auto named = Get("SELECT Fingerprint, DateTime, 0.5, NULL, x'6100' FROM " +
                         std::string(kHistoryTable) + " WHERE SecondTime = 7");
  ASSERT_EQ(named.size(), 1u);
  EXPECT_EQ(any_cast<std::int64_t>(named[0][0]), -1);
  EXPECT_EQ(any_cast<std::string>(named[0][1]), "2024.03.09.10.11.12");
  EXPECT_EQ(any_cast<double>(named[0][2]), 0.5);
  EXPECT_NO_THROW(any_cast<std::monostate>(named[0][3]));
  EXPECT_EQ(any_cast<std::string>(named[0][4]), std::string("a\0", 2));
}

TEST_F(StoreTest, RefusesRowsThatDoNotFitAndWritesNothingOfThem) {
  const auto changed = [](std::size_t cell, any value) {
    Store::Row row = HistoryRow(1);
    row[cell] = std::move(value);
    return row;
  };
  Store::Row tooLong = HistoryRow(1);
  tooLong.emplace_back(std::int64_t{1});
  for (const Store::Row& row :
       {Store::Row{}, Store::Row(16, any(std::int64_t{1})), tooLong, changed(0, 1),
        changed(12, std::uint64_t{1}), changed(16, std::string("1")), changed(14, std::int64_t{1}),
        changed(15, "a literal"), changed(3, any())})
    EXPECT_THROW(store.Put(kHistoryTable, row), std::invalid_argument);
  EXPECT_THROW(store.Put("REGISTRY", HistoryRow(1)), std::invalid_argument);
  EXPECT_EQ(RowCount(), 0);
}

TEST_F(StoreTest, QueriesOnlyRead) {
  store.Put(kHistoryTable, HistoryRow(1));
  const std::string copy = (folder.path / "copy.db").string();
  for (const std::string& query :
       {std::string("DELETE FROM TABLE_HARDWARE_DIAGNOSE"),
        std::string("UPDATE TABLE_HARDWARE_DIAGNOSE SET Cpu = 1"), std::string("BEGIN"),
        std::string("PRAGMA user_version = 3"),
        std::string("SELECT 1; DELETE FROM TABLE_HARDWARE_DIAGNOSE"), "VACUUM INTO '" + copy + "'",
        "ATTACH '" + copy + "' AS other", std::string("SELECT * FROM NOWHERE"), std::string()}) {
    std::vector<Store::Row> rows;
    EXPECT_ANY_THROW(store.Get(query, rows)) << query;
    EXPECT_TRUE(rows.empty()) << query;
  }
  EXPECT_FALSE(std::filesystem::exists(copy));
  EXPECT_EQ(Get("SELECT Cpu FROM TABLE_HARDWARE_DIAGNOSE;").size(), 1u);
}

TEST_F(StoreTest, SaysSoWhenThePagesOfTheFileAreDamaged) {
  {
    Store first(folder.path);
    for (int i = 0; i < 300; ++i) first.Put(kHistoryTable, HistoryRow(i));
  }
  std::string bytes = ReadText(folder.path / "store.db");
  ASSERT_GT(bytes.size(), 3 * 4096u);
  std::fill(bytes.begin() + 4096, bytes.end(), '\xEE');
  WriteText(folder.path / "store.db", bytes);

  std::vector<Store::Row> rows;
  EXPECT_ANY_THROW(store.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE", rows));
  EXPECT_TRUE(rows.empty());
}

TEST(DataManager, AnswersFalseWithOneErrorLineUntilTheStoreCanBeUsed) {
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  const std::filesystem::path file = folder.path / "store.db";
  WriteText(file, "this is no store, and long enough to tell so");
  TestLog& log = TestLog::Instance();
  log.Take();

  std::vector<DataManager::Row> rows;
  DataManager& manager = DataManager::Instance();
  EXPECT_FALSE(manager.Put(kHistoryTable, HistoryRow(1)));
  const std::string line = log.Take();
  EXPECT_THAT(line, HasSubstr("ERROR orv.util"));
  EXPECT_THAT(line, HasSubstr(common::PathText(file)));
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
  EXPECT_FALSE(manager.Get("SELECT 1", RETURN_ORDER_DEFAULT, rows));
  EXPECT_EQ(ReadText(file), "this is no store, and long enough to tell so");

  std::filesystem::remove(file);
  EXPECT_TRUE(manager.Put(kHistoryTable, HistoryRow(1)));
  EXPECT_TRUE(manager.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE", RETURN_ORDER_DEFAULT, rows));
  EXPECT_EQ(rows.size(), 1u);

  EXPECT_EQ(SQLite::Database(file.string()).execAndGet("PRAGMA journal_mode").getString(), "wal");
}

}  // namespace
