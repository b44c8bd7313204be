#pragma once

#include <deque>
#include <mutex>

#include "platform/os/export.h"

namespace os {
class Wakeup;
}

namespace concurrency::detail {

/// What threads wait for, woken in the order they came, each by a wake-up of its own. All calls
/// under one mutex, the owner's.
class UTIL_API Condition {
 public:
  /// Gives the lock up and waits until `holds` is true, looking at each wake-up.
  template <typename Holds>
  void Wait(std::unique_lock<std::mutex>& lock, Holds holds) {
    while (!holds()) WaitOnce(lock);
  }

  void NotifyOne();
  void NotifyAll();

 private:
  void WaitOnce(std::unique_lock<std::mutex>& lock);

  std::deque<os::Wakeup*> waiting;
};

}  // namespace concurrency::detail
