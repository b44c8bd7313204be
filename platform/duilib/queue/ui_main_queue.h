#pragma once

#include <functional>
#include <utility>

#include "platform/os/export.h"
#include "platform/os/module_pin.h"

namespace DuiLib {

/// Closures for the UI thread, run in the order they came. What a closure throws is logged and does
/// not disturb the next. A closure's module stays loaded until the closure has run and is
/// destroyed.
class DUILIB_API UIMainQueue {
 public:
  /// Any thread; returns at once.
  template <typename Callable>
  static void dispatch(Callable closure) {
    Post(std::function<void()>(std::move(closure)), os::AddressInCaller<Callable>());
  }

  /// Runs the closures that wait now; those they dispatch wait for the next call. UI thread only.
  /// Returns how many ran.
  static std::size_t RunPending();

  /// Sets what wakes the loop of the UI thread: called when a closure comes while none waits, on
  /// the thread that dispatches it, and when RunPending leaves some for its next call; at once if
  /// some wait already. It only wakes the loop, and uses nothing of this queue. One at a time. It
  /// is pinned like a closure.
  template <typename Callable>
  static void SetWakeUp(Callable wakeUp) {
    KeepWakeUp(std::function<void()>(std::move(wakeUp)), os::AddressInCaller<Callable>());
  }

  /// The loop has ended. When this returns nothing calls its wake-up any more.
  static void ClearWakeUp() { KeepWakeUp({}, nullptr); }

 private:
  static void Post(std::function<void()> closure, const void* owner);
  static void KeepWakeUp(std::function<void()> wakeUp, const void* owner);
};

}  // namespace DuiLib
