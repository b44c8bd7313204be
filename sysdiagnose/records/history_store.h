#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "sysdiagnose/records/history_record.h"

// The history of runs in the data store. Any thread.
namespace orv::sysdiagnose {

/// Stamps the record with the time and appends it. The store's answer is not looked at: a failed
/// write loses the row.
void SaveHistoryRecord(RunRecord& record);

/// Whether the store gives a saved record back, every cell of it.
bool IsHistoryRecordStored(const RunRecord& record);

/// Whether the store answers a query now. One that does not looks like one without runs to those
/// below.
bool IsHistoryReadable();

/// The latest run with notBefore <= secondTime < before. False, with `record` untouched, when there
/// is none. Throws linb::bad_any_cast, whose text names store, table, row and column, for a row
/// with a cell of another type: the store was written by somebody else or is damaged, and the run
/// of that time cannot be told from it.
bool QueryLatestRecordInRange(HistoryRecord& record, std::int32_t before, std::int32_t notBefore);

/// The run stored in that second. Otherwise as QueryLatestRecordInRange.
bool QueryRecordBySecondTime(HistoryRecord& record, std::int32_t secondTime);

/// Hands out the latest run of each local day, newest day first: at most `maxCount`, and none from
/// more than 90 days back.
void LoadDailyHistory(int maxCount,
                      const std::function<void(const std::vector<HistoryRecord>&)>& loaded);

/// Hands out all runs, newest first.
void LoadAllHistory(const std::function<void(const std::vector<HistoryRecord>&)>& loaded);

/// Hands out whether there is a run of that second, and the run, or a record of zeros.
void LoadHistoryRecord(std::int32_t secondTime,
                       const std::function<void(bool, const HistoryRecord&)>& loaded);

}  // namespace orv::sysdiagnose
