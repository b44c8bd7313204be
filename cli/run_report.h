#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/attention.h"
#include "cli/run_printer.h"
#include "cli/verdict.h"
#include "platform/os/clock.h"
#include "sysdiagnose/catalogue/information_sheet.h"

namespace cli {

enum class ItemState {
  NotTested,  // announced, but without a result
  Heading,    // announced what the items behind it are about
  Normal,
  Abnormal
};

struct ReportItem {
  ItemState state = ItemState::NotTested;
  std::wstring caption;
  std::wstring hint;  // what to do if it is abnormal; a normal item may have one too
  std::int32_t code = 0;
  ItemWords words;
  std::wstring advice;  // what completes the hint of an abnormal item
};

struct ReportRepair {
  std::wstring command;
  bool succeeded = false;
  bool restart = false;  // needed for it to take effect
  std::wstring text;
};

struct ReportCategory {
  orv::sysdiagnose::enmHardwareID id{};
  std::wstring caption;
  std::vector<orv::sysdiagnose::HardwareInfoRow> information;  // an empty row ends a device
  std::string informationFault;                                // why there is none
  std::vector<ReportItem> items;
  ItemWords words;                    // of a test that is no item
  std::vector<std::wstring> unknown;  // why the rest was left out
  std::wstring repairOffer;           // empty: none
  std::vector<ReportRepair> repairs;  // what was done
  bool repaired = false;
};

enum class RunEnd { Finished, Cancelled, Failed };

/// The latest run of a day.
struct ReportDay {
  int daysBack = 0;  // 0 is today
  orv::sysdiagnose::HistoryRecord record;
  RunVerdicts verdicts;
};

/// All that a report tells of a run, as it is: nothing masked, nothing escaped.
struct RunReport {
  std::wstring product;
  os::LocalTime written;
  RunEnd end = RunEnd::Failed;
  std::string error;                       // of a failed run
  std::vector<ReportCategory> categories;  // in the order of the selection, each once
  std::optional<orv::sysdiagnose::RunRecord> record;
  std::string notKept;             // why the store does not have the record
  std::vector<ReportDay> history;  // newest first
  std::string historyFault;        // why there is none
  AttentionList attention;
  RunVerdicts verdicts{{}};  // as they are when the report is written
};

/// Fills the report with what the run tells and hands everything on to another printer. The report
/// must outlive the printer.
std::unique_ptr<RunPrinter> MakeReportCollector(
    const std::vector<orv::sysdiagnose::enmHardwareID>& selection, RunReport& report,
    std::unique_ptr<RunPrinter> next);

/// Adds what the run does not tell: product, time, information sheets and history. A part that
/// cannot be read says so in the report.
void AddMachineFacts(RunReport& report);

/// As "2024-03-09 10:11".
std::string TimeText(const os::LocalTime& time);

enum class CategoryResult { NotTested, Normal, Abnormal };

/// A category's result: abnormal when it has an abnormal item and was not repaired, else as the
/// record has it.
CategoryResult ResultOf(const RunReport& report, const ReportCategory& category);

/// What people are told of it.
Verdict VerdictOf(const RunReport& report, orv::sysdiagnose::enmHardwareID category);
Verdict VerdictOf(const ReportItem& item);

}  // namespace cli
