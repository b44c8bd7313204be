#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "cli/verdict.h"
#include "sysdiagnose/base/hardware_id.h"

// runs.jsonl in the data folder: what the terminal program knows of its own runs beyond their rows
// in the store. docs/json-lines.md describes it.
namespace cli {

struct LoggedCategory {
  orv::sysdiagnose::enmHardwareID category{};
  Verdict verdict = Verdict::NotTested;
  bool isReached = false;
  std::chrono::milliseconds took{0};
};

struct LoggedRun {
  std::int64_t secondTime = 0;             // of its row in the store
  std::vector<int> results;                // of that row
  std::string end;                         // "finished" or "cancelled"
  std::vector<LoggedCategory> categories;  // in the order of the selection
};

/// Appends a run. Throws std::runtime_error naming the file.
void LogRun(const LoggedRun& run);

/// The runs of the file, oldest first; lines that are not as they should be are passed over.
std::vector<LoggedRun> ReadRunLog();

/// How long each category took when it last ran to its end.
std::map<orv::sysdiagnose::enmHardwareID, std::chrono::milliseconds> LastDurations(
    const std::vector<LoggedRun>& runs);

}  // namespace cli
