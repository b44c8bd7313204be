#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

#include "common/log.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/os/process_end.h"

namespace concurrency::detail {
namespace {

// The one thread that timers tick on.
asio::io_context& TimerThread() {
  static asio::io_context& context = *[] {
    auto* made = new asio::io_context(1);
    std::thread([made] {
      const auto work = asio::make_work_guard(*made);
      made->run();
    }).detach();
    return made;
  }();
  return context;
}

}  // namespace

struct TimerState : std::enable_shared_from_this<TimerState> {
  std::chrono::milliseconds period{};
  bool repeating = false;
  const void* owner = nullptr;

  std::recursive_mutex mutex;  // held while a tick runs, so that Stop waits for it
  os::ModulePin pin;           // while started, and until a tick that stops its timer has ended
  std::function<void()> tick;
  unsigned run = 0;  // counts starts and stops; a wait of an earlier run does nothing
  bool started = false;
  bool ticking = false;

  asio::steady_timer timer{TimerThread()};  // timer thread only

  void WaitForNext(unsigned waitedRun) {
    timer.async_wait([self = shared_from_this(), waitedRun](const asio::error_code& error) {
      if (!error) self->Tick(waitedRun);
    });
  }

  void RunTick() {
    ticking = true;
    try {
      tick();
    } catch (...) {
      COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.concurrency"),
                       "A timer's tick failed: " + common::DescribeCurrentException());
    }
    ticking = false;
  }

  void Tick(unsigned waitedRun) {
    os::ModulePin released;  // without the lock: this may unload the module, and destroy its timers
    const std::lock_guard lock(mutex);
    if (!started || run != waitedRun) return;
    RunTick();
    if (run == waitedRun) {
      if (repeating) {
        timer.expires_at(timer.expiry() + period);
        WaitForNext(waitedRun);
        return;
      }
      started = false;
    }
    if (!started) released = std::move(pin);
  }
};

Ticker::Ticker(unsigned periodMs, bool repeating, std::function<void()> tick, const void* owner)
    : state(std::make_shared<TimerState>()) {
  state->period = std::chrono::milliseconds(periodMs);
  state->repeating = repeating;
  state->owner = owner;
  state->tick = std::move(tick);
}

Ticker::~Ticker() {
  if (os::IsLastThreadOfEndingProcess()) return;
  Stop();
  const std::lock_guard lock(state->mutex);
  state->tick = nullptr;  // a wait that has not been cancelled yet may outlive the caller's module
}

void Ticker::Start() {
  const std::lock_guard lock(state->mutex);
  if (state->started) return;
  state->pin = os::ModulePin::OfAddress(state->owner);
  state->started = true;
  asio::post(TimerThread(), [timer = state, run = ++state->run,
                             due = std::chrono::steady_clock::now() + state->period] {
    timer->timer.expires_at(due);
    timer->WaitForNext(run);
  });
}

void Ticker::Stop() {
  os::ModulePin released;
  const std::lock_guard lock(state->mutex);
  if (!state->started) return;
  state->started = false;
  ++state->run;
  if (!state->ticking) released = std::move(state->pin);
  asio::post(TimerThread(), [timer = state] { timer->timer.cancel(); });
}

}  // namespace concurrency::detail
