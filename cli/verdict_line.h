#pragma once

#include <string>

#include "cli/verdict.h"

// Verdicts as a terminal shows them, in UTF-8.
namespace cli {

/// What was tested, and its verdict in a column of its own; below it where a row is too short for
/// both.
std::string VerdictLine(const std::wstring& caption, Verdict verdict);

/// How many categories came to which verdict.
std::string CountsLine(const RunVerdicts& verdicts);

/// How many categories were tested of those selected, for a run that ended before.
std::string TestedLine(const RunVerdicts& verdicts);

}  // namespace cli
