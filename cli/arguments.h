#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "startup/diagnosis/diagnosis_options.h"
#include "startup/usage_error.h"
#include "sysdiagnose/base/hardware_id.h"

namespace cli {

enum class Command { List, Info, Run, History, Scan, Check, Record, Serve, Logs };

struct Arguments : startup::DiagnosisOptions {
  bool json = false;
  Command command = Command::List;
  std::vector<orv::sysdiagnose::enmHardwareID> categories;  // none: all that are offered
  int historyCount = 12;
  bool allHistory = false;
  bool failedAgain = false;  // the categories in which the last run had something abnormal
  bool resumed = false;      // those that the last run, cancelled, did not reach
  std::vector<std::string> singleItems;  // calls of one item each, instead of a run
  bool repair = false;                   // repair what can be repaired after a run or a check
  bool assumeYes = false;                // do not ask before a repair
  std::filesystem::path reportFile;      // none: no report
  std::filesystem::path recordingFile;   // where the machine file goes
  bool withTests = false;                // of a recording
  bool replaceFile = false;
  bool plain = false;            // serial numbers and MAC addresses as they are, not hashed
  std::filesystem::path socket;  // empty: the user's own
  bool upload = false;
  bool showArchive = false;
};

/// Whether it was said what to test.
inline bool HasNamedCategories(const Arguments& arguments) {
  return !arguments.categories.empty() || arguments.failedAgain || arguments.resumed;
}

using startup::UsageError;

/// Throws UsageError for what names no category.
orv::sysdiagnose::enmHardwareID ParseCategory(const std::string& text);

/// Throws UsageError. Returns false when help or the version was asked for and printed.
bool ParseArguments(int argc, const char* const* argv, Arguments& arguments);

}  // namespace cli
