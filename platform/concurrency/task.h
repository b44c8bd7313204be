#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include "platform/os/export.h"
#include "platform/os/module_pin.h"

// Tasks of the concurrency runtime: each runs on a thread of its own, because tasks here block by
// design (pacing, pauses, locks); idle threads are used again. The module that hands a task over
// stays loaded until the task has run and its callable is destroyed.
namespace concurrency {

template <typename Result>
class task;

namespace detail {
struct TaskState;
struct TaskAccess;
}  // namespace detail

/// A handle to a piece of work without a result. Copies are handles to the same work.
template <>
class UTIL_API task<void> {
 public:
  task() = default;

  bool is_done() const;

  /// Waits until the work is done; rethrows what it threw. A handle to nothing returns at once.
  void get() const;
  void wait() const { get(); }

  /// Runs `next`, which takes this task, on a task of its own when this one is done, whether it
  /// returned or threw. What the work threw is handed over by get(), and let go when `next` ends.
  template <typename Callable>
  task then(Callable next) const {
    return Continue([next = std::move(next)](const task& done) mutable { next(done); },
                    os::AddressInCaller<Callable>());
  }

 private:
  friend struct detail::TaskAccess;
  task Continue(std::function<void(const task&)> next, const void* owner) const;

  std::shared_ptr<detail::TaskState> state;
};

namespace detail {
UTIL_API task<void> Start(std::function<void()> work, const void* owner);
UTIL_API void StartDetached(std::function<void()> work, const void* owner);
}  // namespace detail

/// Starts `work` in the background.
template <typename Callable>
task<void> create_task(Callable work) {
  static_assert(std::is_void_v<std::invoke_result_t<Callable&>>);
  return detail::Start(std::function<void()>(std::move(work)), os::AddressInCaller<Callable>());
}

/// Starts `work` on a thread that nobody waits for; what it throws is logged.
template <typename Callable>
void run_detached(Callable work) {
  detail::StartDetached(std::function<void()>(std::move(work)), os::AddressInCaller<Callable>());
}

/// Waits until no task and no detached work waits or runs, and their modules are let go of. For a
/// program's main before it returns, and for tests.
UTIL_API void wait_until_idle();

/// Whether that is so now. Any thread.
UTIL_API bool is_idle();

/// Waits until all tasks, detached work, calls and timers have ended or rest: on the clock, for a
/// value, for each other. Nothing more happens then until the clock moves or a value is sent. For
/// those who move the clock; not on a thread of the runtime. What waits for a lock does not rest.
UTIL_API void wait_until_quiet();

}  // namespace concurrency
