#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "cli/verdict.h"

// Verdicts as a terminal shows them, in UTF-8.
namespace cli {

/// What was tested, and its verdict in a column of its own; below it where a row is too short for
/// both.
std::string VerdictLine(const std::wstring& caption, Verdict verdict);

struct VerdictCount {
  std::wstring words;  // in the language in force
  std::size_t count = 0;
};

/// How many categories came to which verdict: normal and abnormal always, the others where there
/// are any, and those that the run did not reach apart.
std::vector<VerdictCount> CountsOf(const RunVerdicts& verdicts);

/// The same in a line of text, not yet printable.
std::wstring CountsText(const RunVerdicts& verdicts);

/// The same as a run's closing line.
std::string CountsLine(const RunVerdicts& verdicts);

/// How many categories were tested of those selected, for a run that ended before.
std::string TestedLine(const RunVerdicts& verdicts);

}  // namespace cli
