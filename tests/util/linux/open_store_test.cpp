#include <gtest/gtest.h>

#include "platform/util/store.h"
#include "tests/support/history_row.h"
#include "tests/support/temporary_folder.h"

namespace {

using util::Store;

std::vector<Store::Row> Rows(Store& store) {
  std::vector<Store::Row> rows;
  store.Get("SELECT SecondTime FROM TABLE_HARDWARE_DIAGNOSE ORDER BY SecondTime", rows);
  return rows;
}

// Here an open file can be renamed or removed under whoever has it open.
TEST(OpenStore, ThatIsMovedAwayIsLeftForTheOneInItsPlace) {
  const TemporaryFolder folder;
  Store store(folder.path);
  store.Put(kHistoryTable, HistoryRow(1));
  for (const char* ending : {"-wal", "-shm", ""})
    std::filesystem::rename(folder.path / (std::string("store.db") + ending),
                            folder.path / (std::string("moved.db") + ending));
  EXPECT_TRUE(Rows(store).empty());
  store.Put(kHistoryTable, HistoryRow(2));
  EXPECT_EQ(Rows(store).size(), 1U);
  Store other(folder.path);
  ASSERT_EQ(Rows(other).size(), 1U);
  EXPECT_EQ(linb::any_cast<std::int64_t>(Rows(other)[0][0]), 2);
}

}  // namespace
