#pragma once

#include "cli/html_writer.h"
#include "cli/run_report.h"

namespace cli {

/// Draws the last ninety days into the page: one column a day, normal categories below abnormal
/// ones, today at the right.
void DrawHistory(const RunReport& report, HtmlWriter& page);

}  // namespace cli
