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

 private:
  static void Post(std::function<void()> closure, const void* owner);
};

}  // namespace DuiLib
