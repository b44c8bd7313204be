#pragma once

#include <functional>

namespace startup {

/// From now on an interrupt waits for the program's Interruptible to come, which is cancelled at
/// once then; a second one ends the program with `exitStatus`. For the start of a program that will
/// have one.
void ExpectInterrupts(int exitStatus);

/// From now on an interrupt ends the program at once with `exitStatus`, as does one that has come.
/// For a program that needs no end of its own.
void EndAtInterrupts(int exitStatus);

/// While it lives, the first interrupt cancels what goes on; the second ends the program. One at a
/// time, on the main thread.
class Interruptible {
 public:
  /// `exitStatus` is that of a program which a second interrupt ends.
  explicit Interruptible(int exitStatus);
  ~Interruptible();
  Interruptible(const Interruptible&) = delete;
  Interruptible& operator=(const Interruptible&) = delete;

  /// Whether an interrupt has come. Any thread.
  static bool HasCome();

  /// From now on an interrupt calls `cancel`, which may only set a flag; one that came before does
  /// so at once.
  void Cancels(std::function<void()> cancel);

 private:
  std::function<void()> cancelled;
};

}  // namespace startup
