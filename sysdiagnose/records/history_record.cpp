#include "sysdiagnose/records/history_record.h"

#include <algorithm>

namespace orv::sysdiagnose {

RunRecord FreshRunRecord() {
  RunRecord record;
  record.results.fill(kNotTested);
  record.secondTime = -1;
  return record;
}

std::int64_t* ResultOf(RunRecord& record, enmHardwareID category) {
  const auto found = std::find(kRecordOrder.begin(), kRecordOrder.end(), category);
  if (found == kRecordOrder.end()) return nullptr;
  return &record.results[static_cast<std::size_t>(found - kRecordOrder.begin())];
}

}  // namespace orv::sysdiagnose
