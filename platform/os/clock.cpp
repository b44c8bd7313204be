#include "platform/os/clock.h"

#include <ctime>

#include "platform/os/local_time.h"
#include "platform/os/process_state.h"

namespace os {
namespace {

class SystemClock final : public Clock {
 public:
  std::int64_t SecondsSinceEpoch() override { return std::time(nullptr); }
  LocalTime Local() override { return SystemLocalTime(); }
  std::chrono::nanoseconds Now() override {
    return std::chrono::steady_clock::now().time_since_epoch();
  }
  void WaitUntil(Wakeup& wakeup, std::chrono::nanoseconds time) override {
    wakeup.WaitUntil(std::chrono::steady_clock::time_point(time));
  }
};

// Never destroyed: threads ask it to the end of the process. Nor allocated: each load of a module
// that leaves the process would leave one behind.
union KeptClock {
  KeptClock() : clock() {}
  ~KeptClock() {}
  SystemClock clock;
};

}  // namespace

void Clock::Sleep(std::chrono::nanoseconds time) {
  Wakeup nobodyWakes;
  const std::chrono::nanoseconds end = Now() + time;
  while (Now() < end) WaitUntil(nobodyWakes, end);
}

Clock& CurrentClock() {
  static KeptClock system;
  Clock* const set = State().clock;
  return set == nullptr ? system.clock : *set;
}

void SetClock(Clock* clock) {
  State().clock = clock;
}

}  // namespace os
