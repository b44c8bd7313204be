#pragma once

#include "cli/attention.h"
#include "cli/verdict.h"

namespace cli {

/// Prints what a run came to for people: what needs attention and what to do about it, what could
/// not be tested and why, and how much was tested if that was not everything.
void PrintRunSummary(const RunVerdicts& verdicts, const AttentionList& attention);

}  // namespace cli
