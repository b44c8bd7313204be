#include <algorithm>
#include <cstdio>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/run_log.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict.h"
#include "common/text.h"
#include "platform/util/process_store.h"
#include "sysdiagnose/records/history_store.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::size_t TestedOf(const HistoryRecord& record) {
  return record.results.size() -
         static_cast<std::size_t>(std::ranges::count(record.results, kNotTested));
}

// What the log of the runs knows of a row; nothing of rows that others have written.
const LoggedRun* LoggedOf(const std::vector<LoggedRun>& logged, const HistoryRecord& record) {
  const auto run = std::ranges::find_if(logged, [&record](const LoggedRun& each) {
    return each.secondTime == record.secondTime && std::ranges::equal(each.results, record.results);
  });
  return run == logged.end() ? nullptr : &*run;
}

// Names the categories of a row that are abnormal, rows' verdicts included where they are known.
std::wstring AbnormalOf(const HistoryRecord& record, const LoggedRun* run) {
  std::wstring names;
  for (std::size_t i = 0; i < record.results.size(); ++i) {
    bool isAbnormal = record.results[i] == kAbnormal;
    if (run != nullptr)
      isAbnormal |= std::ranges::any_of(run->categories, [i](const LoggedCategory& each) {
        return each.category == kRecordOrder[i] && each.verdict == Verdict::Abnormal;
      });
    if (isAbnormal) names += (names.empty() ? L"" : Text(L"COMMA")) + CaptionOf(kRecordOrder[i]);
  }
  return names;
}

std::wstring CountsOf(const HistoryRecord& record, const LoggedRun* run) {
  const auto count = [run](Verdict verdict, std::size_t stored) {
    return WordsOf(verdict) + L" " +
           std::to_wstring(run == nullptr ? stored : run->CountOf(verdict));
  };
  std::wstring text = count(Verdict::Normal, static_cast<std::size_t>(record.passCount)) +
                      Text(L"COMMA") +
                      count(Verdict::Abnormal, static_cast<std::size_t>(record.failCount));
  if (run != nullptr && run->CountOf(Verdict::NotTested) != 0)
    text += Text(L"COMMA") + count(Verdict::NotTested, 0);
  return text;
}

void PrintText(const HistoryRecord& record, const LoggedRun* run) {
  std::wstring line =
      common::Utf8ToWide(record.dateTime) + L"  " + CountsOf(record, run) + Text(L"COMMA") +
      Text(L"TESTED_SHORT",
           {std::to_wstring(TestedOf(record)), std::to_wstring(record.results.size())});
  if (run != nullptr && run->end == "cancelled") line += Text(L"COMMA") + Text(L"WAS_CANCELLED");
  const std::wstring abnormal = AbnormalOf(record, run);
  if (!abnormal.empty()) line += Text(L"COLON") + abnormal;
  std::puts(Coloured(abnormal.empty() ? Colour::Plain : Colour::Red, Printable(line)).c_str());
}

}  // namespace

int RunHistory(const Arguments& arguments) {
  const std::vector<LoggedRun> logged = ReadRunLog();
  const auto show = [&](const std::vector<HistoryRecord>& records) {
    const std::string fault = util::TakeStoreReadFault();
    if (!fault.empty()) throw std::runtime_error(fault);
    for (const HistoryRecord& record : records) {
      if (arguments.json)
        JsonLine().AddCells(record);
      else
        PrintText(record, LoggedOf(logged, record));
    }
    if (records.empty() && !arguments.json) std::puts(Line(L"NO_RUN").c_str());
  };
  if (arguments.allHistory)
    LoadAllHistory(show);
  else
    LoadDailyHistory(arguments.historyCount, show);
  return util::StoreNotices().empty() ? kAllNormal : kWrongUsage;
}

}  // namespace cli
