#pragma once

#include <functional>

namespace cli {

/// While it lives, the first Ctrl-C cancels what goes on; the second ends the program. One at a
/// time, on the main thread.
class Interruptible {
 public:
  Interruptible();
  ~Interruptible();
  Interruptible(const Interruptible&) = delete;
  Interruptible& operator=(const Interruptible&) = delete;

  /// From now on a Ctrl-C calls `cancel`, which may only set a flag; one that came before does so
  /// at once.
  void Cancels(std::function<void()> cancel);

 private:
  std::function<void()> cancelled;
};

}  // namespace cli
