#include "platform/os/clock.h"

#include <atomic>
#include <ctime>
#include <thread>

namespace os {
namespace {

class SystemClock final : public Clock {
 public:
  std::int64_t SecondsSinceEpoch() override { return std::time(nullptr); }

  LocalTime Local() override {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday,
            parts.tm_hour,        parts.tm_min,     parts.tm_sec};
  }

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
