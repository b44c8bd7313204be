#pragma once

#include <memory>

#include "cli/run_printer.h"

namespace cli {

/// Shows a quiet check: for people a line per category as it ends and a closing summary; as JSON
/// how it ended, behind the summaries that it posts. The verdicts outlive the printer.
std::unique_ptr<RunPrinter> MakeCheckPrinter(bool asJson, const RunVerdicts& verdicts);

}  // namespace cli
