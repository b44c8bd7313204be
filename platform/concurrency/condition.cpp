#include "platform/concurrency/condition.h"

#include "platform/os/wakeup.h"

namespace concurrency::detail {

void Condition::NotifyOne() {
  if (waiting.empty()) return;
  waiting.front()->Wake();
  waiting.pop_front();
}

void Condition::NotifyAll() {
  while (!waiting.empty()) NotifyOne();
}

void Condition::WaitOnce(std::unique_lock<std::mutex>& lock) {
  os::Wakeup wakeup;
  waiting.push_back(&wakeup);
  lock.unlock();
  wakeup.Wait();
  lock.lock();  // the one who woke it holds the mutex until it has done with the wake-up
}

}  // namespace concurrency::detail
