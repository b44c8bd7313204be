#include "sysdiagnose/records/history_store.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <type_traits>
#include <utility>

#include "common/path_text.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/util/data_manager.h"

namespace orv::sysdiagnose {
namespace {

constexpr const char* kTable = "TABLE_HARDWARE_DIAGNOSE";
// The columns by the position of their cells, as people find them in the store.
constexpr auto kColumns =
    std::to_array<const char*>({"Cpu", "Motherboard", "Memory", "Disk", "Gpu", "Display", "Audio",
                                "Network", "Bluetooth", "Battery", "Keyboard", "Fingerprint",
                                "PassCount", "FailCount", "Date", "DateTime", "SecondTime"});
constexpr std::size_t kCellCount = 17;
static_assert(kColumns.size() == kCellCount);
constexpr std::size_t kDateCell = 14;
constexpr std::size_t kDateTimeCell = 15;
constexpr std::size_t kSecondTimeCell = 16;
constexpr std::int64_t kSecondsPerDay = 86400;
constexpr int kDaysBack = 90;

// The buffer that the formatted time texts fit in.
using TextBuffer = std::array<char, 260>;

// Of a cell that nothing here has written.
class WrongCell : public linb::bad_any_cast {
 public:
  explicit WrongCell(std::string text) : reason(std::move(text)) {}
  const char* what() const noexcept override { return reason.c_str(); }

 private:
  const std::string reason;
};

std::string NameOf(const DataManager::Row& row) {
  const auto* secondTime = linb::any_cast<std::int64_t>(&row[kSecondTimeCell]);
  if (secondTime != nullptr) return "the row of SecondTime " + std::to_string(*secondTime);
  const auto* dateTime = linb::any_cast<std::string>(&row[kDateTimeCell]);
  return dateTime != nullptr ? "the row of " + *dateTime : "a row without a time";
}

template <typename Cell>
const Cell& ReadCell(const DataManager::Row& row, std::size_t cell) {
  if (const auto* value = linb::any_cast<Cell>(&row[cell])) return *value;
  throw WrongCell("the data store in " + common::PathText(os::DataFolder()) + ": " + kTable + ": " +
                  NameOf(row) + ": cell " + std::to_string(cell) + " (" + kColumns[cell] +
                  ") is not " +
                  (std::is_same_v<Cell, std::string> ? "a text" : "a 64-bit integer"));
}

std::int32_t ReadInteger(const DataManager::Row& row, std::size_t cell) {
  return static_cast<std::int32_t>(ReadCell<std::int64_t>(row, cell));
}

HistoryRecord ReadRow(const DataManager::Row& row) {
  HistoryRecord record;
  std::size_t cell = 0;
  for (std::int32_t& result : record.results) result = ReadInteger(row, cell++);
  record.passCount = ReadInteger(row, cell++);
  record.failCount = ReadInteger(row, cell++);
  record.date = ReadCell<std::string>(row, kDateCell);
  record.dateTime = ReadCell<std::string>(row, kDateTimeCell);
  record.secondTime = ReadInteger(row, kSecondTimeCell);
  return record;
}

DataManager::Row MakeRow(const RunRecord& record) {
  DataManager::Row row(record.results.begin(), record.results.end());
  row.insert(row.end(),
             {record.passCount, record.failCount, record.date, record.dateTime, record.secondTime});
  return row;
}

template <typename Cell>
bool HoldSame(const linb::any& one, const linb::any& other) {
  const auto* left = linb::any_cast<Cell>(&one);
  const auto* right = linb::any_cast<Cell>(&other);
  return left != nullptr && right != nullptr && *left == *right;
}

bool IsSameCell(const linb::any& one, const linb::any& other) {
  return HoldSame<std::int64_t>(one, other) || HoldSame<std::string>(one, other);
}

bool QueryFirst(const std::string& query, HistoryRecord& record) {
  std::vector<DataManager::Row> rows;
  DataManager::Instance().Get(query, RETURN_ORDER_DEFAULT, rows);
  if (rows.empty() || rows.front().size() < kCellCount) return false;
  record = ReadRow(rows.front());
  return true;
}

}  // namespace

void SaveHistoryRecord(RunRecord& record) {
  const os::LocalTime now = os::CurrentClock().Local();
  TextBuffer text{};
  std::snprintf(text.data(), text.size(), "%4d.%02d.%02d.%02d.%02d.%02d", now.year, now.month,
                now.day, now.hour, now.minute, now.second);
  record.dateTime = text.data();
  std::snprintf(text.data(), text.size(), "%4d.%02d.%02d", now.year, now.month, now.day);
  record.date = text.data();
  record.secondTime = os::CurrentClock().SecondsSinceEpoch();
  DataManager::Instance().Put(kTable, MakeRow(record));
}

bool IsHistoryRecordStored(const RunRecord& record) {
  std::vector<DataManager::Row> rows;
  DataManager::Instance().Get(
      "select * from TABLE_HARDWARE_DIAGNOSE where SecondTime=" + std::to_string(record.secondTime),
      RETURN_ORDER_DEFAULT, rows);
  return std::ranges::any_of(rows, [saved = MakeRow(record)](const DataManager::Row& row) {
    return std::ranges::equal(row, saved, IsSameCell);
  });
}

bool IsHistoryReadable() {
  std::vector<DataManager::Row> rows;
  return DataManager::Instance().Get("select * from TABLE_HARDWARE_DIAGNOSE where SecondTime=0",
                                     RETURN_ORDER_DEFAULT, rows);
}

bool QueryLatestRecordInRange(HistoryRecord& record, std::int32_t before, std::int32_t notBefore) {
  return QueryFirst(
      "select * from TABLE_HARDWARE_DIAGNOSE where SecondTime=(select "
      "Max(SecondTime) from TABLE_HARDWARE_DIAGNOSE where SecondTime<" +
          std::to_string(before) + " and SecondTime>=" + std::to_string(notBefore) + ")",
      record);
}

bool QueryRecordBySecondTime(HistoryRecord& record, std::int32_t secondTime) {
  return QueryFirst(
      "select * from TABLE_HARDWARE_DIAGNOSE where SecondTime=" + std::to_string(secondTime),
      record);
}

void LoadDailyHistory(int maxCount,
                      const std::function<void(const std::vector<HistoryRecord>&)>& loaded) {
  const std::int64_t now = os::CurrentClock().SecondsSinceEpoch();
  const os::LocalTime local = os::CurrentClock().Local();
  const std::int64_t sinceMidnight = local.hour * 3600 + local.minute * 60 + local.second;
  auto dayEnd = static_cast<std::int32_t>(now - sinceMidnight + kSecondsPerDay);

  std::vector<HistoryRecord> records;
  for (int day = 0; day < kDaysBack && static_cast<int>(records.size()) < maxCount; ++day) {
    const auto dayStart = static_cast<std::int32_t>(dayEnd - kSecondsPerDay);
    HistoryRecord record;
    if (QueryLatestRecordInRange(record, dayEnd, dayStart)) records.push_back(std::move(record));
    dayEnd = dayStart;
  }
  loaded(records);
}

void LoadAllHistory(const std::function<void(const std::vector<HistoryRecord>&)>& loaded) {
  std::vector<DataManager::Row> rows;
  DataManager::Instance().Get("select * from TABLE_HARDWARE_DIAGNOSE order by SecondTime desc",
                              RETURN_ORDER_DEFAULT, rows);
  std::vector<HistoryRecord> records;
  for (const DataManager::Row& row : rows)
    if (row.size() >= kCellCount) records.push_back(ReadRow(row));
  loaded(records);
}

void LoadHistoryRecord(std::int32_t secondTime,
                       const std::function<void(bool, const HistoryRecord&)>& loaded) {
  HistoryRecord record;
  const bool found = QueryRecordBySecondTime(record, secondTime);
  loaded(found, record);
}

}  // namespace orv::sysdiagnose
