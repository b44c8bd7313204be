#pragma once

#include <vector>

#include "cli/run_log.h"
#include "cli/verdict.h"
#include "sysdiagnose/records/history_record.h"

namespace cli {

/// A run of the store, told in the words of a run that has just been made.
struct KeptVerdicts {
  RunVerdicts verdicts;
  std::size_t selected = 0;  // categories; all twelve where it is not known
  bool wasCancelled = false;
};

/// By the log of the runs, which knows of rows and of what was not reached; of rows that others
/// have written by what the store says.
KeptVerdicts VerdictsOf(const orv::sysdiagnose::HistoryRecord& record,
                        const std::vector<LoggedRun>& logged);

}  // namespace cli
