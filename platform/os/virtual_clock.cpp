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
  Sleeper sleeper{&wakeup};
  const auto place = sleepers.emplace(time, &sleeper);
  lock.unlock();
  wakeup.Wait();
  lock.lock();
  if (!sleeper.isDue) sleepers.erase(place);
}

std::optional<std::chrono::nanoseconds> VirtualClock::NextDue() {
  const std::lock_guard lock(mutex);
  return sleepers.empty() ? std::nullopt : std::optional(sleepers.begin()->first);
}

bool VirtualClock::WakeNext(std::chrono::nanoseconds end) {
  const std::lock_guard lock(mutex);
  if (sleepers.empty() || sleepers.begin()->first > end) {
    now = std::max(now, end);
    return false;
  }
  now = std::max(now, sleepers.begin()->first);
  WakeFirst();
  return true;
}

void VirtualClock::Advance(std::chrono::nanoseconds time) {
  const std::chrono::nanoseconds end = Now() + time;
  do {
    WaitUntilWorkersRest();
  } while (WakeNext(end));
}

void VirtualClock::Jump(std::chrono::nanoseconds time) {
  const std::lock_guard lock(mutex);
  now += time;
  while (!sleepers.empty() && sleepers.begin()->first <= now) WakeFirst();
}

void VirtualClock::WakeFirst() {
  Sleeper& sleeper = *sleepers.begin()->second;
  sleepers.erase(sleepers.begin());
  sleeper.isDue = true;
  sleeper.wakeup->Wake();
}

}  // namespace os
