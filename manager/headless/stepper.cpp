#include "manager/headless/stepper.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <stdexcept>

#include "manager/host/message_hub.h"
#include "platform/duilib/window/headless_desktop.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/workers.h"

namespace manager {
namespace {

DuiLib::HeadlessDesktop& Desktop() {
  return DuiLib::HeadlessDesktop::Instance();
}

}  // namespace

// What is about to rest at the limit is not taken for what never does.
void Stepper::Settle() {
  constexpr std::chrono::seconds kGrace(1);
  const Moment end = std::max(limit, std::chrono::steady_clock::now() + kGrace);
  for (;;) {
    WaitUntilQuiet(end);
    if (Desktop().RunWhatIsDue() != 0) {
      if (IsOver(end)) throw std::runtime_error("closures or timers make each other without end");
      continue;
    }
    if (!hub.IsCompanionAsked()) return;
    hub.WaitForCompanion(end);
  }
}

bool Stepper::Step(std::chrono::nanoseconds end) {
  const std::chrono::nanoseconds drawn = std::min(Desktop().NextDue().value_or(end), end);
  const bool woke = clock.WakeNext(drawn);
  const bool found = woke || drawn < end;
  Settle();
  return found || clock.Now() < end;
}

bool Stepper::Step() {
  const auto sleeper = clock.NextDue();
  const auto timer = Desktop().NextDue();
  if (!sleeper && !timer) return false;
  Step(std::min(sleeper.value_or(std::chrono::nanoseconds::max()),
                timer.value_or(std::chrono::nanoseconds::max())));
  return true;
}

bool Stepper::IsSomethingDue() {
  constexpr bool kWithIdle = false;
  return clock.NextDue() || Desktop().NextDue(kWithIdle);
}

// Handlers start workers, and workers post: both have to be found at rest, one after the other, and
// nothing posted in between.
void Stepper::WaitUntilQuiet(Moment end) {
  std::optional<std::uint64_t> before;
  for (;;) {
    const auto posted = message::DeliveredBefore(end);
    if (!posted)
      throw std::runtime_error("a message handler does not return, or posts without end");
    if (posted == before) return;
    if (before && IsOver(end)) throw std::runtime_error("messages are posted without end");
    before = posted;
    if (!os::WorkersRestBefore(end)) throw std::runtime_error("a worker neither ends nor rests");
  }
}

}  // namespace manager
