#include "platform/machine/live/call_limits.h"

#include <array>
#include <atomic>

namespace machine {
namespace {

using std::chrono::milliseconds;

// In milliseconds, by the order of the limits.
std::array<std::atomic<milliseconds::rep>, static_cast<std::size_t>(CallLimit::Count)>& Limits() {
  static auto& limits =
      *new std::array<std::atomic<milliseconds::rep>, static_cast<std::size_t>(CallLimit::Count)>{
          0, 10'000, 20'000, 40'000};
  return limits;
}

}  // namespace

milliseconds LimitOf(CallLimit limit) {
  return milliseconds(Limits().at(static_cast<std::size_t>(limit)));
}

void SetLimit(CallLimit limit, milliseconds time) {
  Limits().at(static_cast<std::size_t>(limit)) = time.count();
}

}  // namespace machine
