#include "platform/concurrency/task.h"

#include <mutex>
#include <vector>

#include "common/log.h"
#include "platform/concurrency/condition.h"
#include "platform/concurrency/worker_pool.h"
#include "platform/os/workers.h"

namespace concurrency {
namespace detail {

struct TaskState {
  std::mutex mutex;
  Condition changed;
  bool done = false;
  std::exception_ptr error;
  std::vector<Job> continuations;
};

struct TaskAccess {
  static task<void> Handle(std::shared_ptr<TaskState> state) {
    task<void> handle;
    handle.state = std::move(state);
    return handle;
  }
};

namespace {

// Runs the work, destroys it, and only then calls the task done.
void Run(TaskState& state, std::function<void()>& work) {
  std::exception_ptr error;
  try {
    work();
  } catch (...) {
    error = std::current_exception();
  }
  work = nullptr;
  std::vector<Job> continuations;
  {
    const std::lock_guard lock(state.mutex);
    state.error = std::move(error);
    state.done = true;
    continuations.swap(state.continuations);
    state.changed.NotifyAll();
  }
  for (Job& next : continuations) WorkerPool::Instance().Post(std::move(next));
}

Job MakeJob(const std::shared_ptr<TaskState>& state, std::function<void()> work,
            const void* owner) {
  return {os::ModulePin::OfAddress(owner),
          [state, work = std::move(work)]() mutable { Run(*state, work); }};
}

}  // namespace

task<void> Start(std::function<void()> work, const void* owner) {
  auto state = std::make_shared<TaskState>();
  WorkerPool::Instance().Post(MakeJob(state, std::move(work), owner));
  return TaskAccess::Handle(std::move(state));
}

void StartDetached(std::function<void()> work, const void* owner) {
  WorkerPool::Instance().Post({os::ModulePin::OfAddress(owner), [work = std::move(work)] {
                                 try {
                                   work();
                                 } catch (...) {
                                   COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.concurrency"),
                                                    "Detached work failed: " +
                                                        common::DescribeCurrentException());
                                 }
                               }});
}

}  // namespace detail

bool task<void>::is_done() const {
  if (!state) return true;
  const std::lock_guard lock(state->mutex);
  return state->done;
}

void task<void>::get() const {
  if (!state) return;
  std::unique_lock lock(state->mutex);
  state->changed.Wait(lock, [this] { return state->done; });
  if (state->error) std::rethrow_exception(state->error);
}

task<void> task<void>::Continue(std::function<void(const task&)> next, const void* owner) const {
  auto following = std::make_shared<detail::TaskState>();
  detail::Job job = detail::MakeJob(
      following,
      [previous = *this, next = std::move(next)] {
        next(previous);
        if (!previous.state) return;
        const std::lock_guard lock(previous.state->mutex);
        previous.state->error = nullptr;
      },
      owner);
  if (state) {
    const std::lock_guard lock(state->mutex);
    if (!state->done) {
      state->continuations.push_back(std::move(job));
      return detail::TaskAccess::Handle(std::move(following));
    }
  }
  detail::WorkerPool::Instance().Post(std::move(job));
  return detail::TaskAccess::Handle(std::move(following));
}

void wait_until_idle() {
  detail::WorkerPool::Instance().WaitUntilIdle();
}

bool is_idle() {
  return detail::WorkerPool::Instance().IsIdle();
}

void wait_until_quiet() {
  os::WaitUntilWorkersRest();
}

}  // namespace concurrency
