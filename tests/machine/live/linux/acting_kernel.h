#pragma once

#include <functional>

#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "tests/support/temporary_folder.h"

/// Stands for a kernel that has acted by the time that somebody who waits for it looks again: the
/// first wait calls it. Time passes only in waits. Has a data folder of its own in force.
class ActingKernel : public os::Clock {
 public:
  explicit ActingKernel(std::function<void()> acting) : act(std::move(acting)) {
    os::SetDataFolder(folder.path);
    os::SetClock(this);
  }
  ~ActingKernel() override { os::SetClock(nullptr); }
  ActingKernel(const ActingKernel&) = delete;
  ActingKernel& operator=(const ActingKernel&) = delete;

  std::int64_t SecondsSinceEpoch() override { return 0; }
  os::LocalTime Local() override { return {}; }
  std::chrono::nanoseconds Now() override { return now; }
  void WaitUntil(os::Wakeup&, std::chrono::nanoseconds time) override { Pass(time - now); }
  void Sleep(std::chrono::nanoseconds time) override { Pass(time); }

 private:
  void Pass(std::chrono::nanoseconds time) {
    now += time;
    if (act) std::exchange(act, nullptr)();
  }

  TemporaryFolder folder;
  std::chrono::nanoseconds now{0};
  std::function<void()> act;
};
