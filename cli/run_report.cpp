#include "cli/run_report.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "cli/kept_verdicts.h"
#include "common/log.h"
#include "platform/machine/current.h"
#include "platform/util/process_store.h"
#include "sysdiagnose/records/history_store.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr int kDays = 90;
constexpr std::int64_t kSecondsPerDay = 86400;

void AddInformation(ReportCategory& category) {
  try {
    CollectInformation(category.id, [&category](enmHardwareID, const auto& row) {
      category.information.push_back(row);
      return true;
    });
  } catch (...) {
    category.informationFault = common::DescribeCurrentException();
  }
}

// Days as the history counts them: steps of 24 hours back from the next midnight.
int DaysBack(std::int64_t secondTime) {
  const os::LocalTime now = os::CurrentClock().Local();
  const std::int64_t sinceMidnight = now.hour * 3600 + now.minute * 60 + now.second;
  const std::int64_t midnight = os::CurrentClock().SecondsSinceEpoch() - sinceMidnight;
  return static_cast<int>((midnight + kSecondsPerDay - 1 - secondTime) / kSecondsPerDay);
}

void AddHistory(RunReport& report) {
  util::TakeStoreReadFault();
  try {
    const std::vector<LoggedRun> logged = ReadRunLog();
    LoadDailyHistory(kDays, [&](const std::vector<HistoryRecord>& records) {
      for (const HistoryRecord& record : records)
        report.history.push_back(
            {DaysBack(record.secondTime), record, VerdictsOf(record, logged).verdicts});
    });
  } catch (...) {
    report.historyFault = common::DescribeCurrentException();
    return;
  }
  report.historyFault = util::TakeStoreReadFault();
}

}  // namespace

void AddMachineFacts(RunReport& report) {
  report.product = machine::Current().ProductName();
  report.written = os::CurrentClock().Local();
  for (ReportCategory& category : report.categories) AddInformation(category);
  AddHistory(report);
}

std::string TimeText(const os::LocalTime& time) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", time.year, time.month,
                time.day, time.hour, time.minute);
  return text.data();
}

CategoryResult ResultOf(const RunReport& report, const ReportCategory& category) {
  if (!category.repaired &&
      std::ranges::count(category.items, ItemState::Abnormal, &ReportItem::state) > 0)
    return CategoryResult::Abnormal;
  if (!report.record) return CategoryResult::NotTested;
  const auto cell = std::ranges::find(kRecordOrder, category.id) - kRecordOrder.begin();
  if (cell == kHardwareIdCount) return CategoryResult::NotTested;
  const std::int64_t result = report.record->results[static_cast<std::size_t>(cell)];
  if (result == kNotTested) return CategoryResult::NotTested;
  return result == kNormal ? CategoryResult::Normal : CategoryResult::Abnormal;
}

Verdict VerdictOf(const RunReport& report, enmHardwareID category) {
  const CategoryVerdict* verdict = report.verdicts.Find(category);
  return verdict == nullptr ? Verdict::NotTested : verdict->verdict;
}

Verdict VerdictOf(const ReportItem& item) {
  if (item.state == ItemState::Abnormal) return Verdict::Abnormal;
  return item.state == ItemState::Normal && item.words.notTested.empty() ? Verdict::Normal
                                                                         : Verdict::NotTested;
}

}  // namespace cli
