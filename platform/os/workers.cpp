#include "platform/os/workers.h"

#include <mutex>
#include <thread>
#include <utility>

#include "platform/os/process_state.h"

namespace os {
namespace {

void Add() {
  ProcessState& state = State();
  const std::lock_guard lock(state.workersMutex);
  ++state.working;
}

void Remove() {
  ProcessState& state = State();
  const std::lock_guard lock(state.workersMutex);
  if (--state.working == 0) state.noneWorks.notify_all();
}

thread_local bool isWorker = false;

}  // namespace

void StartWorker(std::function<void()> body) {
  Add();
  try {
    std::thread([body = std::move(body)] {
      isWorker = true;
      body();
      Remove();
    }).detach();
  } catch (...) {
    Remove();
    throw;
  }
}

void WaitUntilWorkersRest() {
  ProcessState& state = State();
  std::unique_lock lock(state.workersMutex);
  state.noneWorks.wait(lock, [&state] { return state.working == 0; });
}

bool WorkersRestBefore(std::chrono::steady_clock::time_point limit) {
  ProcessState& state = State();
  std::unique_lock lock(state.workersMutex);
  return state.noneWorks.wait_until(lock, limit, [&state] { return state.working == 0; });
}

bool detail::IsWorkerOfThisModule() {
  return isWorker;
}

bool detail::WorkerRests() {
  if (!State().isWorker()) return false;
  Remove();
  return true;
}

void detail::WorkerGoesOn() {
  Add();
}

}  // namespace os
