#pragma once

#include <functional>

namespace cli {

/// While it lives, the first Ctrl-C calls `cancel`, which may only set a flag; the second ends the
/// program. One at a time.
class Interruptible {
 public:
  explicit Interruptible(std::function<void()> cancel);
  ~Interruptible();
  Interruptible(const Interruptible&) = delete;
  Interruptible& operator=(const Interruptible&) = delete;

 private:
  std::function<void()> cancel;
};

}  // namespace cli
