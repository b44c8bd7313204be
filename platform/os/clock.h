#pragma once

#include <chrono>
#include <cstdint>

#include "platform/os/export.h"

// Time, behind one replaceable clock so that tests need not wait.
namespace os {

/// Local calendar time. Month 1 to 12, day 1 to 31.
struct LocalTime {
  int year = 0;
  int month = 0;
  int day = 0;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

/// What tells the time and waits. Any thread.
class UTIL_API Clock {
 public:
  virtual ~Clock() = default;
  /// Seconds since 1970-01-01 00:00:00 UTC.
  virtual std::int64_t SecondsSinceEpoch() = 0;
  virtual LocalTime Local() = 0;
  virtual void Sleep(std::chrono::nanoseconds time) = 0;
};

/// The clock in force; the system's own unless one was set.
UTIL_API Clock& CurrentClock();

/// Puts a clock in force, null for the system's own. The caller owns it and sets it back.
UTIL_API void SetClock(Clock* clock);

}  // namespace os
