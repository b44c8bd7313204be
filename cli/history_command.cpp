#include <cstdio>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/terminal_text.h"
#include "common/text.h"
#include "platform/util/process_store.h"
#include "sysdiagnose/records/history_store.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

void PrintText(const HistoryRecord& record) {
  const std::string time = Printable(common::Utf8ToWide(record.dateTime));
  std::printf("%s  %2d normal  %2d abnormal", time.c_str(), record.passCount, record.failCount);
  const char* separator = ": ";
  for (std::size_t i = 0; i < record.results.size(); ++i) {
    if (record.results[i] != kAbnormal) continue;
    std::printf("%s%s", separator,
                Coloured(Colour::Red, Printable(CaptionOf(kRecordOrder[i]))).c_str());
    separator = ", ";
  }
  std::puts("");
}

}  // namespace

int RunHistory(const Arguments& arguments) {
  LoadDailyHistory(arguments.historyCount, [&](const std::vector<HistoryRecord>& records) {
    const std::string fault = util::TakeStoreReadFault();
    if (!fault.empty()) throw std::runtime_error(fault);
    for (const HistoryRecord& record : records) {
      if (arguments.json)
        JsonLine().AddCells(record);
      else
        PrintText(record);
    }
    if (records.empty() && !arguments.json) std::puts("No run in the last 90 days.");
  });
  return util::StoreNotices().empty() ? kAllNormal : kWrongUsage;
}

}  // namespace cli
