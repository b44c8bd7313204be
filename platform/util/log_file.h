#pragma once

#include <filesystem>

#include "platform/os/export.h"

namespace util {

/// From now on appends log lines of level info and above to `folder`/sysdiagnose.log, in UTF-8, one
/// line each: time, level, logger, location, text. A full file (platform/os/append_file.h) becomes
/// sysdiagnose.1.log; several programs may log to one folder. Without this nothing is logged. For a
/// program's start. Throws std::runtime_error when the file cannot be written.
UTIL_API void StartLogFile(const std::filesystem::path& folder);

}  // namespace util
