#include "common/log.h"
#include "platform/concurrency/message_blocks.h"
#include "platform/concurrency/worker_pool.h"
#include "platform/os/process_end.h"

namespace concurrency::detail {

struct CallState {
  const void* owner = nullptr;
  std::mutex mutex;
  Condition drained;
  std::deque<std::function<void()>> steps;
  bool running = false;
};

namespace {

void RunStep(const std::function<void()>& step) {
  try {
    step();
  } catch (...) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.concurrency"),
                     "A call failed: " + common::DescribeCurrentException());
  }
}

void Drain(CallState& state) {
  std::unique_lock lock(state.mutex);
  while (!state.steps.empty()) {
    std::function<void()> step = std::move(state.steps.front());
    state.steps.pop_front();
    lock.unlock();
    RunStep(step);
    step = nullptr;
    lock.lock();
  }
  state.running = false;
  state.drained.NotifyAll();
}

}  // namespace

SerialQueue::SerialQueue(const void* owner) : state(std::make_shared<CallState>()) {
  state->owner = owner;
}

SerialQueue::~SerialQueue() {
  if (os::IsLastThreadOfEndingProcess()) return;
  std::unique_lock lock(state->mutex);
  state->drained.Wait(lock, [this] { return !state->running; });
}

void SerialQueue::Post(std::function<void()> step) {
  const std::lock_guard lock(state->mutex);
  state->steps.push_back(std::move(step));
  if (state->running) return;
  WorkerPool::Instance().Post(
      {os::ModulePin::OfAddress(state->owner), [queue = state] { Drain(*queue); }});
  state->running = true;
}

}  // namespace concurrency::detail
