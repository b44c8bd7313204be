#pragma once

#include "tests/support/virtual_clock.h"

/// A clock that a sleep moves on at once. In force while it lives. Any thread.
class FakeClock : public VirtualClock {
 public:
  using VirtualClock::VirtualClock;

  void Sleep(std::chrono::nanoseconds time) override { Jump(time); }
};
