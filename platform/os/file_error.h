#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include "common/path_text.h"

namespace os {

/// Why the last call of the system failed, on the thread that made it. Ask before anything else is
/// called; message() says it in the system's words.
std::error_code LastError();

/// What went wrong with a file or folder, as one line that names it.
inline std::runtime_error FileError(const std::filesystem::path& file, const std::string& reason) {
  return std::runtime_error(common::PathText(file) + ": " + reason);
}

}  // namespace os
