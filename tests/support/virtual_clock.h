#pragma once

#include "platform/os/virtual_clock.h"

/// A clock that stands still until a test moves it, its local time for good. In force while it
/// lives. Any thread.
class VirtualClock : public os::VirtualClock {
 public:
  explicit VirtualClock(std::int64_t seconds = 0, os::LocalTime localTime = {})
      : os::VirtualClock(seconds), local(localTime) {}

  os::LocalTime Local() override { return local; }

 private:
  const os::LocalTime local;
};
