#pragma once

#include <filesystem>
#include <string>

#include "cli/arguments.h"
#include "cli/run_report.h"
#include "platform/machine/masking/identifier_mask.h"

namespace cli {

/// Whether a report can be written under this name: it ends in .html or .json.
bool IsReportName(const std::filesystem::path& file);

/// Completes the report and writes it to arguments.reportFile, whole or not at all. Throws
/// std::runtime_error naming the file.
void WriteReport(RunReport& report, const Arguments& arguments);

// One per kind of file; docs/report.md describes them. All texts go through the mask.
std::string HtmlReport(const RunReport& report, const machine::IdentifierMask& mask);
std::string JsonReport(const RunReport& report, const machine::IdentifierMask& mask);

}  // namespace cli
