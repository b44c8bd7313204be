#include <cstdio>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/kept_verdicts.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "cli/verdict_line.h"
#include "common/text.h"
#include "platform/util/process_store.h"
#include "sysdiagnose/records/history_store.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

std::wstring AbnormalOf(const RunVerdicts& verdicts) {
  std::wstring names;
  for (const CategoryVerdict& each : verdicts.All())
    if (each.verdict == Verdict::Abnormal)
      names += (names.empty() ? L"" : Text(L"COMMA")) + CaptionOf(each.category);
  return names;
}

void PrintText(const HistoryRecord& record, const KeptVerdicts& kept) {
  std::wstring line =
      common::Utf8ToWide(record.dateTime) + L"  " + CountsText(kept.verdicts) + Text(L"COMMA") +
      Text(L"TESTED_SHORT",
           {std::to_wstring(kept.verdicts.CountOfTested()), std::to_wstring(kept.selected)});
  if (kept.wasCancelled) line += Text(L"COMMA") + Text(L"WAS_CANCELLED");
  const std::wstring abnormal = AbnormalOf(kept.verdicts);
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
        PrintText(record, VerdictsOf(record, logged));
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
