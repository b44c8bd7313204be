#include "platform/util/store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include <optional>
#include <variant>

#include "common/path_text.h"
#include "platform/os/paths.h"
#include "platform/util/process_store.h"
#include "tests/support/fake_clock.h"
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

// A store with a registry value and enough rows to fill many pages, closed.
std::string FilledStore(const std::filesystem::path& folder) {
  {
    Store store(folder);
    store.SetRegistryValue("root", "key", "name", "value");
    store.Put(kHistoryTable, HistoryRow(1));
  }
  SQLite::Database(common::PathText(folder / "store.db"), SQLite::OPEN_READWRITE)
      .exec(
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
          "INSERT INTO TABLE_HARDWARE_DIAGNOSE SELECT t.* FROM TABLE_HARDWARE_DIAGNOSE t, n");
  return ReadText(folder / "store.db");
}

// The file that a store in this folder was set aside as; empty when there are none or several.
std::filesystem::path SetAside(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string name = common::PathText(entry.path().filename());
    if (name.starts_with("store.db.damaged-") && !name.ends_with("-wal") && !name.ends_with("-shm"))
      found.push_back(entry.path());
  }
  return found.size() == 1 ? found[0] : std::filesystem::path();
}

TEST(DamagedStore, IsSetAsideAndItsRegistryGoesOverWhereItCanBeRead) {
  constexpr std::size_t kPage = 4096;
  const struct {
    const char* name;
    std::string (*damage)(std::string bytes);
    bool keepsRegistry;
  } cases[] = {
      {"no store", [](std::string) { return std::string("long enough to tell"); }, false},
      {"cut off", [](std::string bytes) { return bytes.substr(0, 4 * kPage + 7); }, true},
      {"last page", [](std::string bytes) { return bytes.substr(0, bytes.size() - 1000); }, true},
      {"first page", [](std::string bytes) { return bytes.replace(0, kPage, kPage, 'x'); }, false},
      {"rows",
       [](std::string bytes) {
         return bytes.substr(0, 3 * kPage) + std::string(bytes.size() - 3 * kPage, '\xEE');
       },
       true},
      {"all but the first page",
       [](std::string bytes) {
         return bytes.substr(0, kPage) + std::string(bytes.size() - kPage, '\xEE');
       },
       false},
  };
  for (const auto& damaged : cases) {
    SCOPED_TRACE(damaged.name);
    const TemporaryFolder folder;
    const std::string bytes = damaged.damage(FilledStore(folder.path));
    WriteText(folder.path / "store.db", bytes);

    std::vector<std::string> told;
    Store store(folder.path, [&told](const std::string& text) { told.push_back(text); });
    store.Put(kHistoryTable, HistoryRow(1000));
    std::vector<Store::Row> rows;
    store.Get("SELECT SecondTime FROM TABLE_HARDWARE_DIAGNOSE ORDER BY Cpu", rows);
    EXPECT_EQ(rows.size(), 1U);
    EXPECT_EQ(store.RegistryValue("root", "key", "name").has_value(), damaged.keepsRegistry);

    const std::filesystem::path aside = SetAside(folder.path);
    ASSERT_FALSE(aside.empty());
    EXPECT_TRUE(ReadText(aside) == bytes);
    ASSERT_EQ(told.size(), 1U);
    EXPECT_THAT(told[0], HasSubstr(common::PathText(folder.path / "store.db") + ": "));
    EXPECT_THAT(told[0], HasSubstr(common::PathText(aside.filename())));
  }
}

// A cut beside which a side file stands does not show in the size alone.
TEST(DamagedStore, IsNoticedWhereverItWasCutOff) {
  const TemporaryFolder source;
  const std::string whole = FilledStore(source.path);
  std::vector<std::size_t> cuts = {2, 15, 16, 23, 24, 28, 31, 32, 95, 96, 99, 100, 103, 105, 108};
  for (std::size_t cut = 512; cut < whole.size(); cut += 509) cuts.push_back(cut);
  for (std::size_t page = 4096; page < whole.size(); page += 4096)
    cuts.insert(cuts.end(), {page - 1, page, page + 1});
  cuts.push_back(whole.size() - 1);
  for (const std::size_t cut : cuts) {
    SCOPED_TRACE(cut);
    const TemporaryFolder folder;
    WriteText(folder.path / "store.db", whole.substr(0, cut));
    std::vector<std::string> told;
    Store store(folder.path, [&told](const std::string& text) { told.push_back(text); });
    std::vector<Store::Row> rows;
    store.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE WHERE SecondTime = 1", rows);
    EXPECT_EQ(rows.size(), 0U);
    EXPECT_EQ(told.size(), 1U);
    const std::filesystem::path aside = SetAside(folder.path);
    EXPECT_TRUE(!aside.empty() && ReadText(aside) == whole.substr(0, cut));
  }
}

// What a process leaves behind that was killed while its rows went from the log into the store.
struct Crashed {
  std::string store;
  std::string log;
};

Crashed KilledInACheckpoint(const std::filesystem::path& folder) {
  FilledStore(folder);
  const std::filesystem::path file = folder / "store.db";
  const std::string before = ReadText(file);
  SQLite::Database database(common::PathText(file), SQLite::OPEN_READWRITE);
  database.exec(
      "PRAGMA wal_autocheckpoint=0;"
      "INSERT INTO TABLE_HARDWARE_DIAGNOSE SELECT * FROM TABLE_HARDWARE_DIAGNOSE");
  Crashed left;
  left.log = ReadText(folder / "store.db-wal");
  database.exec("PRAGMA wal_checkpoint(PASSIVE)");
  const std::string after = ReadText(file);
  // The pages go in order, so the first, with the new number of pages, was the first to go.
  left.store = after.substr(0, 4096) + before.substr(4096);
  return left;
}

TEST(SoundStore, IsOneWhoseOwnerDiedBeforeAllOfItWasInTheFile) {
  const TemporaryFolder source;
  const Crashed left = KilledInACheckpoint(source.path);
  std::vector<std::size_t> lengths = {left.store.size(), left.store.size() + 2048};
  for (std::size_t cut = 2; cut < left.store.size(); cut += 509) lengths.push_back(cut);
  for (const std::size_t length : lengths) {
    SCOPED_TRACE(length);
    const TemporaryFolder folder;
    std::string bytes = left.store;
    bytes.resize(length);
    WriteText(folder.path / "store.db", bytes);
    WriteText(folder.path / "store.db-wal", left.log);
    std::vector<std::string> told;
    Store store(folder.path, [&told](const std::string& text) { told.push_back(text); });
    std::vector<Store::Row> rows;
    store.Get("SELECT PassCount FROM TABLE_HARDWARE_DIAGNOSE WHERE PassCount = 1", rows);
    if (length >= left.store.size()) {
      EXPECT_TRUE(told.empty());
    }
    EXPECT_EQ(rows.size(), told.empty() ? 602U : 0U);
    EXPECT_EQ(SetAside(folder.path).empty(), told.empty());
  }
}

TEST(DamagedStore, TakesItsSideFilesAlongAndASecondOneGetsAnotherName) {
  const FakeClock clock(0, {2024, 3, 9, 10, 11, 12});
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.path / "store.db";
  const std::string aside = file.string() + ".damaged-2024-03-09-10-11-12";
  WriteText(file, "first");
  WriteText(file.string() + "-wal", "first log");
  Store(folder.path).Put(kHistoryTable, HistoryRow(2));
  WriteText(file, "second");
  Store(folder.path).Put(kHistoryTable, HistoryRow(3));

  EXPECT_EQ(ReadText(aside), "first");
  EXPECT_EQ(ReadText(aside + "-wal"), "first log");
  EXPECT_EQ(ReadText(aside + "-2"), "second");
}

TEST(SoundStore, IsRefusedUntouchedWhenItIsNewer) {
  const struct {
    const char* name;
    std::string (*change)(std::string bytes);
    const char* reason;
  } cases[] = {
      {"layout",
       [](std::string bytes) {
         return bytes.replace(60, 4, {0, 0, 0, 1});
       },
       "was written by a newer version"},
      {"file format",
       [](std::string bytes) {
         return bytes.replace(18, 2, {3, 3});
       },
       "is of a newer format"},
  };
  for (const auto& newer : cases) {
    SCOPED_TRACE(newer.name);
    const TemporaryFolder folder;
    const std::string bytes = newer.change(FilledStore(folder.path));
    WriteText(folder.path / "store.db", bytes);
    Store store(folder.path);
    try {
      store.Put(kHistoryTable, HistoryRow(1));
      ADD_FAILURE() << "was written to";
    } catch (const std::exception& error) {
      EXPECT_THAT(error.what(), HasSubstr(common::PathText(folder.path / "store.db") + ": "));
      EXPECT_THAT(error.what(), HasSubstr(newer.reason));
    }
    EXPECT_TRUE(ReadText(folder.path / "store.db") == bytes);
    EXPECT_TRUE(SetAside(folder.path).empty());
  }
}

TEST(SoundStore, ThatAnotherHoldsIsWaitedForOnceAndForTenSeconds) {
  FakeClock clock;
  const TemporaryFolder folder;
  std::optional<SQLite::Database> holder(std::in_place, common::PathText(folder.path / "store.db"),
                                         SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  holder->exec("CREATE TABLE OTHER (cell); BEGIN EXCLUSIVE");
  Store store(folder.path);
  std::vector<Store::Row> rows;
  for (int i = 0; i < 90; ++i) {
    try {
      store.Get("SELECT 1", rows);
      ADD_FAILURE() << "could be read";
    } catch (const std::exception& error) {
      EXPECT_THAT(error.what(), HasSubstr("another program holds it"));
    }
  }
  EXPECT_GE(clock.SecondsSinceEpoch(), 10);
  EXPECT_LE(clock.SecondsSinceEpoch(), 11) << "reads that follow do not wait again";
  EXPECT_ANY_THROW(store.Put(kHistoryTable, HistoryRow(1)));
  EXPECT_GE(clock.SecondsSinceEpoch(), 20) << "a row is worth a wait of its own";
  EXPECT_LE(clock.SecondsSinceEpoch(), 22);

  holder.reset();
  store.Put(kHistoryTable, HistoryRow(1));
  store.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE", rows);
  EXPECT_EQ(rows.size(), 1U);
  EXPECT_TRUE(SetAside(folder.path).empty());
}

TEST(SoundStore, ThatCannotBeOpenedTellsTheReasonOfTheSystem) {
  const TemporaryFolder folder;
  const std::filesystem::path missing = folder.path / "no" / "folder";
  try {
    Store(missing).Put(kHistoryTable, HistoryRow(1));
    ADD_FAILURE() << "could be written";
  } catch (const std::exception& error) {
    EXPECT_THAT(error.what(), HasSubstr(common::PathText(missing / "store.db") +
                                        ": unable to open database file: "));
  }
}

TEST(DataManager, TellsAReasonOnceForManyReadsAndForEachLostRow) {
  const TemporaryFolder folder;
  os::SetDataFolder(folder.path);
  const std::filesystem::path file = folder.path / "store.db";
  std::string bytes = FilledStore(folder.path);
  WriteText(file, bytes.replace(60, 4, {0, 0, 0, 1}));
  TestLog& log = TestLog::Instance();
  log.Take();

  std::vector<DataManager::Row> rows;
  DataManager& manager = DataManager::Instance();
  for (int i = 0; i < 90; ++i) EXPECT_FALSE(manager.Get("SELECT 1", RETURN_ORDER_DEFAULT, rows));
  const std::string line = log.Take();
  EXPECT_THAT(line, HasSubstr("ERROR orv.util"));
  EXPECT_THAT(line, HasSubstr(common::PathText(file)));
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
  EXPECT_THAT(util::TakeStoreReadFault(), HasSubstr(common::PathText(file)));
  EXPECT_EQ(util::TakeStoreReadFault(), "");
  EXPECT_EQ(util::StoreWriteFault(), "");
  for (int i = 0; i < 2; ++i) {
    EXPECT_FALSE(manager.Put(kHistoryTable, HistoryRow(1)));
    EXPECT_THAT(log.Take(), HasSubstr("newer"));
  }
  EXPECT_THAT(util::StoreWriteFault(), HasSubstr("newer"));

  std::filesystem::remove(file);
  EXPECT_TRUE(manager.Put(kHistoryTable, HistoryRow(1)));
  EXPECT_EQ(util::StoreWriteFault(), "");
  EXPECT_TRUE(manager.Get("SELECT * FROM TABLE_HARDWARE_DIAGNOSE", RETURN_ORDER_DEFAULT, rows));
  EXPECT_EQ(rows.size(), 1u);
  EXPECT_EQ(SQLite::Database(file.string()).execAndGet("PRAGMA journal_mode").getString(), "wal");
  EXPECT_TRUE(util::StoreNotices().empty());
}

}  // namespace
