#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <thread>

#include "common/log.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/concurrency/worker_pool.h"
#include "platform/os/clock.h"
#include "platform/os/process_end.h"

namespace concurrency::detail {

// A started timer has a worker that waits and ticks. Its job holds the module until the timer is
// stopped, or has ticked once and does not repeat.
struct TimerState {
  std::chrono::milliseconds period{};
  bool repeating = false;
  const void* owner = nullptr;
  std::function<void()> tick;
  os::Wakeup changed;

  std::mutex mutex;  // guards what follows; not held while waiting and ticking
  bool started = false;
  os::Clock* clock = nullptr;
  std::chrono::nanoseconds due{};  // of the next tick, on that clock
  std::uint64_t changes = 0;       // starts and stops
  std::uint64_t seen = 0;          // how many of them the worker acts upon
  Condition hasSeen;
  bool hasWorker = false;
  std::thread::id worker;
};

namespace {

using Lock = std::unique_lock<std::mutex>;

void Wait(TimerState& timer, Lock& lock) {
  os::Clock& clock = *timer.clock;
  const std::chrono::nanoseconds due = timer.due;
  lock.unlock();
  clock.WaitUntil(timer.changed, due);
  lock.lock();
}

void Tick(TimerState& timer, Lock& lock) {
  lock.unlock();
  try {
    timer.tick();
  } catch (...) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.concurrency"),
                     "A timer's tick failed: " + common::DescribeCurrentException());
  }
  lock.lock();
  if (timer.changes != timer.seen) return;
  timer.due += timer.period;
  timer.started = timer.repeating;
}

void TickUntilStopped(TimerState& timer) {
  Lock lock(timer.mutex);
  timer.worker = std::this_thread::get_id();
  for (;;) {
    timer.seen = timer.changes;
    timer.hasSeen.NotifyAll();
    if (!timer.started) break;
    if (timer.clock->Now() < timer.due)
      Wait(timer, lock);
    else
      Tick(timer, lock);
  }
  timer.hasWorker = false;
  timer.worker = {};
}

}  // namespace

Ticker::Ticker(unsigned periodMs, bool repeating, std::function<void()> tick, const void* owner)
    : state(std::make_shared<TimerState>()) {
  state->period = std::chrono::milliseconds(periodMs);
  state->repeating = repeating;
  state->owner = owner;
  state->tick = std::move(tick);
}

Ticker::~Ticker() {
  if (!os::IsLastThreadOfEndingProcess()) Stop();
}

void Ticker::Start() {
  const std::lock_guard lock(state->mutex);
  if (state->started) return;
  state->clock = &os::CurrentClock();
  state->due = state->clock->Now() + state->period;
  if (!state->hasWorker) {
    constexpr bool kAwaited = false;
    WorkerPool::Instance().Post({os::ModulePin::OfAddress(state->owner),
                                 [timer = state] { TickUntilStopped(*timer); }, kAwaited});
  }
  state->hasWorker = true;
  state->started = true;
  ++state->changes;
  state->changed.Wake();
}

void Ticker::Stop() {
  Lock lock(state->mutex);
  if (state->started) {
    state->started = false;
    ++state->changes;
    state->changed.Wake();
  }
  if (!state->hasWorker || state->worker == std::this_thread::get_id()) return;
  state->hasSeen.Wait(lock,
                      [&timer = *state, stop = state->changes] { return timer.seen >= stop; });
}

}  // namespace concurrency::detail
