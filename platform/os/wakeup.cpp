#include "platform/os/wakeup.h"

#include <memory>
#include <utility>

#include "platform/os/process_end.h"
#include "platform/os/workers.h"

namespace os {

Wakeup::Wakeup() {
  std::construct_at(&changed);
}

Wakeup::~Wakeup() {
  if (!IsLastThreadOfEndingProcess()) std::destroy_at(&changed);
}

void Wakeup::Wake() {
  const std::lock_guard lock(mutex);
  woken = true;
  // Counted here, not by the one that wakes up: whoever sees all at rest then missed nothing.
  if (std::exchange(workerRests, false)) detail::WorkerGoesOn();
  changed.notify_one();
}

void Wakeup::Wait() {
  Rest(
      [this](std::unique_lock<std::mutex>& lock) { changed.wait(lock, [this] { return woken; }); });
}

void Wakeup::WaitUntil(std::chrono::steady_clock::time_point moment) {
  Rest([this, moment](std::unique_lock<std::mutex>& lock) {
    changed.wait_until(lock, moment, [this] { return woken; });
  });
}

template <typename WaitOnce>
void Wakeup::Rest(WaitOnce waitOnce) {
  std::unique_lock lock(mutex);
  if (!woken) {
    workerRests = detail::WorkerRests();
    waitOnce(lock);
    if (std::exchange(workerRests, false)) detail::WorkerGoesOn();
  }
  woken = false;
}

}  // namespace os
