#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "cli/arguments.h"

namespace cli {

enum ExitStatus {
  kAllNormal = 0,
  kSomethingAbnormal = 1,
  kWrongUsage = 2,
  kCancelled = 3,
  kRunFailed = 4,
  kNotTestedAsAsked = 5  // nothing abnormal, but a category named could not be tested
};

// Each command prints to standard output and returns the exit status.
int RunList(const Arguments& arguments);
int RunInfo(const Arguments& arguments);
int RunDiagnosis(const Arguments& arguments);
int RunSingleItems(const Arguments& arguments);
int RunHistory(const Arguments& arguments);
int RunScan(const Arguments& arguments);
int RunCheck(const Arguments& arguments);
int RunRecording(const Arguments& arguments);
int RunServe(const Arguments& arguments);
int RunLogs(const Arguments& arguments);

/// The socket named, or this user's own.
std::filesystem::path BrokerSocket(const Arguments& arguments);

/// The categories named, those of the last run that are asked for again, or all offered ones in
/// catalogue order. Throws UsageError when the last run has none of those asked for.
std::vector<orv::sysdiagnose::enmHardwareID> SelectedCategories(const Arguments& arguments);

/// Why there is nothing to test, when no category is named: none is offered, or the machine is
/// built without all that are.
std::string NothingOffered();

/// The caption of a category as people read it; its number when there is none.
std::wstring CaptionOf(orv::sysdiagnose::enmHardwareID category);

}  // namespace cli
