#pragma once

#include <chrono>
#include <functional>

#include "platform/os/virtual_clock.h"

namespace manager {

class MessageHub;

/// Moves the virtual clock: one moment that something waits for after the other, and before each
/// everything is done that follows from the one before. So what happens does not hang on how fast
/// the machine is. UI thread only; modal windows may open and close inside.
class Stepper {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  Stepper(os::VirtualClock& movedClock, MessageHub& messages) : clock(movedClock), hub(messages) {}

  /// What cannot be done by this moment of real time is given up.
  void SetLimit(Moment value) { limit = value; }
  bool IsOverLimit() const { return IsOver(limit); }

  /// Runs closures and deliveries until there are none, every worker has ended or rests, and the
  /// companion service has answered. Throws std::runtime_error naming what goes on at the limit,
  /// and a second from now.
  void Settle();

  /// Goes on to the next moment up to `end` that something waits for, and settles. False when there
  /// is none, and `end` is now.
  bool Step(std::chrono::nanoseconds end);

  /// The same to the next moment that something waits for; false when nothing waits.
  bool Step();

  /// Whether something waits for a later moment, other than what nobody waits for.
  bool IsSomethingDue();

  /// Whether a worker waits for a later moment.
  bool DoesAWorkerSleep() { return clock.NextDue().has_value(); }

  std::chrono::nanoseconds Now() { return clock.Now(); }

 private:
  static bool IsOver(Moment moment) { return std::chrono::steady_clock::now() > moment; }
  void WaitUntilQuiet(Moment end);

  os::VirtualClock& clock;
  MessageHub& hub;
  Moment limit = Moment::max();
};

}  // namespace manager
