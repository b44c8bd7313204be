#pragma once

#include "platform/concurrency/message_blocks.h"
#include "platform/concurrency/task.h"

/// Starts more threads than a test needs at once: how many that is depends on the scheduling.
inline void StartSpareThreads() {
  constexpr int kSpare = 32;
  concurrency::unbounded_buffer<int> gate;
  for (int i = 0; i < kSpare; ++i) concurrency::create_task([&gate] { gate.receive(); });
  for (int i = 0; i < kSpare; ++i) gate.send(0);
  concurrency::wait_until_idle();
}
