#pragma once

#include <thread>

#include "tests/support/virtual_clock.h"

namespace orv::sysdiagnose {

/// A clock that goes on as the UI thread sleeps, which is the one that makes it; others wait for
/// it.
class SteppedClock final : public VirtualClock {
 public:
  using VirtualClock::VirtualClock;

  void Sleep(std::chrono::nanoseconds time) override {
    if (std::this_thread::get_id() == uiThread)
      Jump(time);
    else
      VirtualClock::Sleep(time);
  }

 private:
  const std::thread::id uiThread = std::this_thread::get_id();
};

}  // namespace orv::sysdiagnose
