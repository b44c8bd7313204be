#pragma once

#include <chrono>
#include <cstdint>

#include "platform/os/wakeup.h"

// Time, behind one replaceable clock: tests need not wait, and a program may step through time.
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
///
/// A clock that stands still until it is moved wakes, when it is moved, what waits for a time that
/// has come; WaitUntilWorkersRest tells when all that follows has been done.
class Clock {
 public:
  virtual ~Clock() = default;

  /// Seconds since 1970-01-01 00:00:00 UTC.
  virtual std::int64_t SecondsSinceEpoch() = 0;
  virtual LocalTime Local() = 0;

  /// Time since some moment of the past; never goes back, whatever is done to the calendar.
  virtual std::chrono::nanoseconds Now() = 0;

  /// Waits until Now() has come to `time` or the wake-up comes; may return earlier.
  virtual void WaitUntil(Wakeup& wakeup, std::chrono::nanoseconds time) = 0;

  virtual void Sleep(std::chrono::nanoseconds time);
};

/// The clock in force; the system's own unless one was set.
Clock& CurrentClock();

/// Puts a clock in force, null for the system's own. The caller owns it and sets it back; it lives
/// until nothing waits in it any more and every timer started under it has been stopped.
void SetClock(Clock* clock);

}  // namespace os
