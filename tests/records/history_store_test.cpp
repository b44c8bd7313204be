#include "sysdiagnose/records/history_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "common/path_text.h"
#include "platform/util/data_manager.h"
#include "tests/support/fake_clock.h"
#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

// 2019-03-07 12:00:00 UTC, told as 13:00:00 local time.
constexpr std::int64_t kNoon = 1551960000;
constexpr std::int64_t kMidnight = kNoon - 13 * 3600;
constexpr std::int64_t kDay = 86400;
constexpr os::LocalTime kLocal{2019, 3, 7, 13, 0, 0};

void Store(std::int64_t seconds, std::int64_t passCount = 0) {
  const FakeClock clock(seconds, kLocal);
  RunRecord record = FreshRunRecord();
  record.passCount = passCount;
  SaveHistoryRecord(record);
}

std::vector<std::int32_t> DailyTimes(int maxCount) {
  const FakeClock clock(kNoon, kLocal);
  std::vector<std::int32_t> times;
  LoadDailyHistory(maxCount, [&times](const std::vector<HistoryRecord>& records) {
    for (const HistoryRecord& record : records) times.push_back(record.secondTime);
  });
  return times;
}

TEST(HistoryStore, ASavedRunIsStampedAndReadBack) {
  const InForce inForce;
  const FakeClock clock(kNoon, {2019, 3, 7, 9, 5, 0});
  RunRecord record = FreshRunRecord();
  *ResultOf(record, enmHardwareID::Audio) = kAbnormal;
  record.failCount = 1;
  SaveHistoryRecord(record);
  EXPECT_EQ(record.date, "2019.03.07");
  EXPECT_EQ(record.dateTime, "2019.03.07.09.05.00");
  EXPECT_EQ(record.secondTime, kNoon);

  bool called = false;
  LoadHistoryRecord(kNoon, [&](bool found, const HistoryRecord& read) {
    called = true;
    EXPECT_TRUE(found);
    EXPECT_THAT(read.results, testing::ElementsAre(-1, -1, -1, -1, -1, -1, 1, -1, -1, -1, -1, -1));
    EXPECT_EQ(read.failCount, 1);
    EXPECT_EQ(read.dateTime, record.dateTime);
  });
  EXPECT_TRUE(called);
  LoadHistoryRecord(kNoon + 1, [](bool found, const HistoryRecord& read) {
    EXPECT_FALSE(found);
    EXPECT_EQ(read, HistoryRecord());
  });
}

TEST(HistoryStore, ARunCountsAsStoredOnlyWhenEveryCellComesBack) {
  const InForce inForce;
  const FakeClock clock(kNoon, kLocal);
  RunRecord record = FreshRunRecord();
  RunRecord sameSecond = FreshRunRecord();
  sameSecond.passCount = 1;
  EXPECT_FALSE(IsHistoryRecordStored(record));
  SaveHistoryRecord(sameSecond);
  SaveHistoryRecord(record);
  EXPECT_TRUE(IsHistoryRecordStored(sameSecond));
  EXPECT_TRUE(IsHistoryRecordStored(record));
  record.results[0] = kAbnormal;
  EXPECT_FALSE(IsHistoryRecordStored(record));
}

TEST(HistoryStore, EachDayShowsItsLastRunAndMidnightBelongsToTheNewDay) {
  const InForce inForce;
  for (const std::int64_t time :
       {kMidnight, kMidnight + 5, kNoon, kMidnight - 1, kMidnight - kDay, kMidnight - 3 * kDay})
    Store(time);
  EXPECT_THAT(DailyTimes(12), testing::ElementsAre(kNoon, kMidnight - 1, kMidnight - 3 * kDay));
  EXPECT_THAT(DailyTimes(1), testing::ElementsAre(kNoon));
}

TEST(HistoryStore, TheScanGoesNinetyDaysBackAndNoFurther) {
  const InForce inForce;
  Store(kMidnight - 89 * kDay - 1);
  EXPECT_THAT(DailyTimes(12), testing::ElementsAre());
  Store(kMidnight - 89 * kDay);
  EXPECT_THAT(DailyTimes(12), testing::ElementsAre(kMidnight - 89 * kDay));
}

TEST(HistoryStore, ARangeIsHalfOpenAndAMissLeavesTheRecordAlone) {
  const InForce inForce;
  Store(1000, 1);
  Store(2000, 2);
  HistoryRecord record;
  record.passCount = 9;
  EXPECT_FALSE(QueryLatestRecordInRange(record, 1000, 0));
  EXPECT_EQ(record.passCount, 9);
  EXPECT_TRUE(QueryLatestRecordInRange(record, 2000, 1000));
  EXPECT_EQ(record.passCount, 1);
  EXPECT_TRUE(QueryLatestRecordInRange(record, 2001, -5));
  EXPECT_EQ(record.passCount, 2);
}

TEST(HistoryStore, ARowWithACellOfAnotherTypeIsAnErrorThatNamesIt) {
  const InForce inForce;
  const std::filesystem::path folder = inForce.folder.path / "data";
  const struct {
    const char* change;
    const char* named;
  } cases[] = {
      {"Disk = 'half'", "the row of SecondTime 1551960000: cell 3 (Disk) is not a 64-bit integer"},
      {"FailCount = 0.5",
       "the row of SecondTime 1551960000: cell 13 (FailCount) is not a 64-bit integer"},
      {"SecondTime = 1551960000.5",
       "the row of 2019.03.07.13.00.00: cell 16 (SecondTime) is not a 64-bit integer"},
  };
  for (const auto& wrong : cases) {
    SCOPED_TRACE(wrong.change);
    Store(kNoon);
    SQLite::Database database(common::PathText(folder / "store.db"), SQLite::OPEN_READWRITE);
    database.exec(std::string("UPDATE TABLE_HARDWARE_DIAGNOSE SET ") + wrong.change);
    try {
      DailyTimes(12);
      ADD_FAILURE() << "was read";
    } catch (const linb::bad_any_cast& error) {
      EXPECT_EQ(error.what(), "the data store in " + common::PathText(folder) +
                                  ": TABLE_HARDWARE_DIAGNOSE: " + wrong.named);
    }
    database.exec("DELETE FROM TABLE_HARDWARE_DIAGNOSE");
  }
}

TEST(HistoryStore, NumbersAreCutToThirtyTwoBitsWhenRead) {
  const InForce inForce;
  Store(77, (std::int64_t{1} << 32) + 3);
  HistoryRecord record;
  ASSERT_TRUE(QueryRecordBySecondTime(record, 77));
  EXPECT_EQ(record.passCount, 3);
}

}  // namespace
}  // namespace orv::sysdiagnose
