#include "platform/os/clock.h"

#include <atomic>
#include <ctime>
#include <thread>

#include "platform/os/local_time.h"

namespace os {
namespace {

class SystemClock final : public Clock {
 public:
  std::int64_t SecondsSinceEpoch() override { return std::time(nullptr); }
  LocalTime Local() override { return SystemLocalTime(); }
  void Sleep(std::chrono::nanoseconds time) override { std::this_thread::sleep_for(time); }
};

std::atomic<Clock*> replacement = nullptr;

}  // namespace

Clock& CurrentClock() {
  static SystemClock& system = *new SystemClock;
  Clock* const set = replacement;
  return set == nullptr ? system : *set;
}

void SetClock(Clock* clock) {
  replacement = clock;
}

}  // namespace os
