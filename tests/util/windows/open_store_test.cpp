#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "common/path_text.h"
#include "platform/util/store.h"
#include "tests/support/fake_clock.h"
#include "tests/support/history_row.h"
#include "tests/support/temporary_folder.h"

namespace {

// Here a file that somebody has open cannot be renamed.
TEST(OpenStore, ThatIsDamagedStaysAndTheMessageSaysSo) {
  const FakeClock clock;
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.path / "store.db";
  WriteText(file, "no store");
  const SQLite::Database holder(common::PathText(file));
  try {
    util::Store(folder.path).Put(kHistoryTable, HistoryRow(1));
    ADD_FAILURE() << "was set aside";
  } catch (const std::exception& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr(common::PathText(file) +
                                                 ": is damaged and cannot be set aside: "));
  }
  EXPECT_EQ(ReadText(file), "no store");
}

}  // namespace
