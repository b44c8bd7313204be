#include "platform/util/patience.h"

#include <algorithm>

#include "platform/os/clock.h"

namespace util {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kLimit{10'000};
constexpr milliseconds kShortestPause{1};
constexpr milliseconds kLongestPause{100};

}  // namespace

void Patience::Renew() {
  *this = Patience();
}

// What was slept counts by itself: a clock set by a test lets no real time pass.
bool Patience::Wait() {
  const steady_clock::time_point now = steady_clock::now();
  if (!begun) begun = now;
  isUsedUp = waited >= kLimit || now - *begun >= kLimit;
  if (isUsedUp) return false;
  pause = std::clamp(pause * 2, kShortestPause, kLongestPause);
  os::CurrentClock().Sleep(pause);
  waited += pause;
  return true;
}

}  // namespace util
