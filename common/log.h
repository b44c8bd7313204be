#pragma once

#include <log4cxx/logger.h>

#include <string>
#include <string_view>

// One log statement is one fact on one line, and never throws. The location handed over is that of
// the statement: file, line and the function's full signature.

namespace common {

/// The text with control characters, line separators and everything beyond ASCII as escapes, so
/// that no device name can forge or split a line.
std::string OneLine(std::string_view text);
std::string OneLine(std::wstring_view text);

/// What the exception being handled says of itself. Only inside a catch.
std::string DescribeCurrentException();

/// Tells the logging library's own error channel that a log statement failed, and why. Never
/// throws. Only inside a catch.
void ReportLogFailure() noexcept;

}  // namespace common

#define COMMON_LOG(macro, logger, text)       \
  do {                                        \
    try {                                     \
      macro(logger, ::common::OneLine(text)); \
    } catch (...) {                           \
      ::common::ReportLogFailure();           \
    }                                         \
  } while (false)

#define COMMON_LOG_INFO(logger, text) COMMON_LOG(LOG4CXX_INFO, logger, text)
#define COMMON_LOG_WARN(logger, text) COMMON_LOG(LOG4CXX_WARN, logger, text)
#define COMMON_LOG_ERROR(logger, text) COMMON_LOG(LOG4CXX_ERROR, logger, text)
