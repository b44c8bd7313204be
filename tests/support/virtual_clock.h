#pragma once

#include <map>
#include <mutex>

#include "platform/concurrency/task.h"
#include "platform/os/clock.h"

/// A clock that stands still until it is moved. In force while it lives. Any thread.
class VirtualClock : public os::Clock {
 public:
  explicit VirtualClock(std::int64_t seconds = 0, os::LocalTime localTime = {})
      : now(std::chrono::seconds(seconds)), local(localTime) {
    os::SetClock(this);
  }
  VirtualClock(const VirtualClock&) = delete;
  VirtualClock& operator=(const VirtualClock&) = delete;
  ~VirtualClock() override { os::SetClock(nullptr); }

  std::int64_t SecondsSinceEpoch() override {
    return std::chrono::duration_cast<std::chrono::seconds>(Now()).count();
  }

  os::LocalTime Local() override { return local; }

  std::chrono::nanoseconds Now() override {
    const std::lock_guard lock(mutex);
    return now;
  }

  void WaitUntil(os::Wakeup& wakeup, std::chrono::nanoseconds time) override {
    std::unique_lock lock(mutex);
    if (time <= now) return;
    const auto place = waiting.emplace(time, &wakeup);
    lock.unlock();
    wakeup.Wait();
    lock.lock();
    waiting.erase(place);
  }

  /// Moves on through each moment that something waits for, and lets all that follows from it be
  /// done before the next. Not on a thread of the runtime.
  void Advance(std::chrono::nanoseconds time) {
    const std::chrono::nanoseconds end = Now() + time;
    do {
      concurrency::wait_until_quiet();
    } while (MoveToNext(end));
  }

 protected:
  /// Moves on at once; what waited for the time that has passed wakes up.
  void Jump(std::chrono::nanoseconds time) {
    const std::lock_guard lock(mutex);
    MoveTo(now + time);
  }

 private:
  // False when nothing waits for a moment up to the end, which then is now.
  bool MoveToNext(std::chrono::nanoseconds end) {
    const std::lock_guard lock(mutex);
    const auto next = waiting.upper_bound(now);
    const bool found = next != waiting.end() && next->first <= end;
    MoveTo(found ? next->first : end);
    return found;
  }

  void MoveTo(std::chrono::nanoseconds time) {
    const auto first = waiting.upper_bound(now);
    now = time;
    for (auto due = first; due != waiting.end() && due->first <= now; ++due) due->second->Wake();
  }

  std::mutex mutex;
  std::chrono::nanoseconds now;
  const os::LocalTime local;
  std::multimap<std::chrono::nanoseconds, os::Wakeup*> waiting;
};
