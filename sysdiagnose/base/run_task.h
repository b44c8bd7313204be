#pragma once

#include <functional>
#include <string>

#include "platform/concurrency/task.h"

namespace orv::sysdiagnose {

/// Runs the bodies of one owner on background tasks, one after another. For the owner's thread; it
/// may go while a body runs, which then ends by itself.
class RunTask {
 public:
  /// Takes the reason when a body throws; it is logged before.
  using FailedCallback = std::function<void(const std::string& error)>;

  /// Starts `body`, behind the one before if that has not ended yet. Returns at once.
  void Begin(std::function<void()> body, FailedCallback failed);

  /// Waits until the body begun last has ended, and `failed` with it.
  void Wait() const { task.get(); }

 private:
  concurrency::task<void> task;
};

/// Calls an empty callback the way a call of it would fail: throws std::bad_function_call.
template <typename... Callbacks>
void RequireSet(const Callbacks&... callbacks) {
  if (!(static_cast<bool>(callbacks) && ...)) throw std::bad_function_call();
}

}  // namespace orv::sysdiagnose
