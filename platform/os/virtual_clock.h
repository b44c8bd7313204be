#pragma once

#include <map>
#include <mutex>
#include <optional>

#include "platform/os/clock.h"

namespace os {

/// A clock that stands still until it is moved. In force while it lives. Any thread.
class VirtualClock : public Clock {
 public:
  /// The calendar begins at `seconds` since 1970-01-01 00:00:00 UTC and goes on with the clock.
  explicit VirtualClock(std::int64_t seconds);
  VirtualClock(const VirtualClock&) = delete;
  VirtualClock& operator=(const VirtualClock&) = delete;
  ~VirtualClock() override;

  std::int64_t SecondsSinceEpoch() override;
  LocalTime Local() override;
  std::chrono::nanoseconds Now() override;
  void WaitUntil(Wakeup& wakeup, std::chrono::nanoseconds time) override;

  /// The next moment that something waits for; nothing when nothing waits.
  std::optional<std::chrono::nanoseconds> NextDue();

  /// Goes on to the next moment that something waits for and wakes one that does. False when
  /// nothing waits for a moment up to `end`, which then is now.
  bool WakeNext(std::chrono::nanoseconds end);

  /// Wakes one after the other what waits for a moment up to then, and lets all that follows from
  /// it be done before the next. Not on a worker.
  void Advance(std::chrono::nanoseconds time);

 protected:
  /// Moves on at once; what waited for the time that has passed wakes up.
  void Jump(std::chrono::nanoseconds time);

 private:
  struct Sleeper {
    Wakeup* wakeup;
    bool isDue = false;  // and no longer among the sleepers
  };

  void WakeFirst();

  std::mutex mutex;
  std::chrono::nanoseconds now;
  std::multimap<std::chrono::nanoseconds, Sleeper*> sleepers;
};

}  // namespace os
