#pragma once

#include <mutex>

#include "platform/os/clock.h"

/// A clock whose time passes only by sleeping, at once. In force while it lives. Any thread.
class FakeClock final : public os::Clock {
 public:
  explicit FakeClock(std::int64_t seconds = 0, os::LocalTime localTime = {})
      : now(std::chrono::seconds(seconds)), local(localTime) {
    os::SetClock(this);
  }
  ~FakeClock() override { os::SetClock(nullptr); }

  std::int64_t SecondsSinceEpoch() override {
    const std::lock_guard lock(mutex);
    return std::chrono::duration_cast<std::chrono::seconds>(now).count();
  }

  os::LocalTime Local() override { return local; }

  void Sleep(std::chrono::nanoseconds time) override {
    const std::lock_guard lock(mutex);
    now += time;
  }

 private:
  std::mutex mutex;
  std::chrono::nanoseconds now;
  os::LocalTime local;
};
