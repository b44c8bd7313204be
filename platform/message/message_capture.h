#pragma once

#include <filesystem>

#include "platform/os/export.h"

namespace message {

/// From now on writes every message that this process posts to `file`, one JSON object a line, as
/// its sender handed it over. Throws std::runtime_error when the file cannot be written. For a
/// program's start.
UTIL_API void StartCapture(const std::filesystem::path& file);

}  // namespace message
