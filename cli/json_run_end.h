#pragma once

#include <string>

#include "cli/verdict.h"

// The last lines of a run, a check or a scan as JSON.
namespace cli {

void PrintFinished(int abnormal, int firstAbnormal, const RunVerdicts& verdicts);
void PrintCancelled(const RunVerdicts& verdicts);
void PrintFailed(const std::string& error, const RunVerdicts& verdicts);

}  // namespace cli
