#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace os {

/// Ends one thread's wait. One thread waits for it at a time: where several wait on one condition
/// variable, the C library of Linux can lose a wake-up for one of them (its bug 25847, mended in
/// 2.41).
class Wakeup {
 public:
  Wakeup();
  Wakeup(const Wakeup&) = delete;
  Wakeup& operator=(const Wakeup&) = delete;
  ~Wakeup();

  /// Ends the wait that goes on, or the next one if none does. Any thread.
  void Wake();

  /// Waits until woken.
  void Wait();

  /// Waits until woken, or until this moment of real time.
  void WaitUntil(std::chrono::steady_clock::time_point moment);

 private:
  template <typename WaitOnce>
  void Rest(WaitOnce waitOnce);

  std::mutex mutex;
  // Left as it is at the end of a process: a thread that is gone may hold the lock inside.
  union {
    std::condition_variable changed;
  };
  bool woken = false;
  bool workerRests = false;  // the thread that waits is a worker, and counts as resting
};

}  // namespace os
