#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace companion {

/// "<path>: <reason>", the reason in the system's words.
std::runtime_error FileFailure(const std::filesystem::path& file, const std::error_code& reason);

/// The same with the reason of the last failed call of the C library, or with other words where it
/// has none. `errno` must have been 0 before the call.
std::runtime_error LastFailure(const std::filesystem::path& file, const std::string& otherwise);

}  // namespace companion
