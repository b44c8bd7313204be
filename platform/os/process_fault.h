#pragma once

#include <string>
#include <system_error>

#include "platform/os/file_error.h"

// Why a program has no result, worded alike on each system.
namespace os {

inline constexpr const char* kNotStarted = "cannot be started";
inline constexpr const char* kTooLate = "does not come to an end";
inline constexpr const char* kTooMuch = "prints too much";

/// With the system's reason.
inline std::string NotStarted(std::error_code reason) {
  if (reason == std::errc::no_such_file_or_directory) return "is not installed";
  return std::string(kNotStarted) + ": " + reason.message();
}

}  // namespace os
