#include "platform/os/virtual_clock.h"

#include <algorithm>

#include "platform/os/local_time.h"
#include "platform/os/workers.h"

namespace os {

VirtualClock::VirtualClock(std::int64_t seconds) : now(std::chrono::seconds(seconds)) {
  SetClock(this);
}

VirtualClock::~VirtualClock() {
  SetClock(nullptr);
}

std::int64_t VirtualClock::SecondsSinceEpoch() {
  return std::chrono::duration_cast<std::chrono::seconds>(Now()).count();
}

LocalTime VirtualClock::Local() {
  return LocalTimeAt(SecondsSinceEpoch());
}

std::chrono::nanoseconds VirtualClock::Now() {
  const std::lock_guard lock(mutex);
  return now;
}

void VirtualClock::WaitUntil(Wakeup& wakeup, std::chrono::nanoseconds time) {
  std::unique_lock lock(mutex);
  if (time <= now) return;
  const auto place = waiting.emplace(time, &wakeup);
  lock.unlock();
  wakeup.Wait();
  lock.lock();
  waiting.erase(place);
}

std::optional<std::chrono::nanoseconds> VirtualClock::NextDue() {
  const std::lock_guard lock(mutex);
  const auto next = waiting.upper_bound(now);
  return next == waiting.end() ? std::nullopt : std::optional(next->first);
}

void VirtualClock::MoveTo(std::chrono::nanoseconds time) {
  const std::lock_guard lock(mutex);
  const auto first = waiting.upper_bound(now);
  now = std::max(now, time);
  for (auto due = first; due != waiting.end() && due->first <= now; ++due) due->second->Wake();
}

void VirtualClock::Advance(std::chrono::nanoseconds time) {
  const std::chrono::nanoseconds end = Now() + time;
  for (WaitUntilWorkersRest(); Now() < end; WaitUntilWorkersRest())
    MoveTo(std::min(NextDue().value_or(end), end));
}

}  // namespace os
