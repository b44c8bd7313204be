#include "platform/os/workers.h"

#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace os {
namespace {

class Working {
 public:
  void Add() {
    const std::lock_guard lock(mutex);
    ++count;
  }

  void Remove() {
    const std::lock_guard lock(mutex);
    if (--count == 0) none.notify_all();
  }

  void WaitForNone() {
    std::unique_lock lock(mutex);
    none.wait(lock, [this] { return count == 0; });
  }

 private:
  std::mutex mutex;
  std::condition_variable none;
  std::size_t count = 0;
};

Working& TheWorking() {
  static Working& working = *new Working;
  return working;
}

thread_local bool isWorker = false;

}  // namespace

void StartWorker(std::function<void()> body) {
  TheWorking().Add();
  try {
    std::thread([body = std::move(body)] {
      isWorker = true;
      body();
      TheWorking().Remove();
    }).detach();
  } catch (...) {
    TheWorking().Remove();
    throw;
  }
}

void WaitUntilWorkersRest() {
  TheWorking().WaitForNone();
}

bool detail::WorkerRests() {
  if (isWorker) TheWorking().Remove();
  return isWorker;
}

void detail::WorkerGoesOn() {
  TheWorking().Add();
}

}  // namespace os
