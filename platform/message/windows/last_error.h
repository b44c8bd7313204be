#pragma once

#include <windows.h>

#include <asio/error.hpp>
#include <system_error>

namespace message {

/// What GetLastError tells, with the system's words for it.
inline std::error_code LastError() {
  return {static_cast<int>(GetLastError()), asio::error::get_system_category()};
}

}  // namespace message
