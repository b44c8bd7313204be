#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace os {

/// A program that runs beside this one, without input and output and out of reach of the terminal's
/// interrupt. One thread at a time.
class ChildProcess {
 public:
  /// Starts a program found in the search path with this argument vector (no shell). Throws
  /// std::runtime_error naming a program that cannot be started.
  explicit ChildProcess(const std::vector<std::string>& arguments);
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  /// Asks the program to end and kills it when it has not done so after three seconds.
  ~ChildProcess();

  /// Asks the program to end, as a request to end from the system does; it may do so in its time.
  void AskToEnd();

  /// Ends the program at once and waits for that.
  void Kill();

  /// Whether the program ends within `limit`.
  bool EndsWithin(std::chrono::milliseconds limit);

 private:
  struct System;
  std::unique_ptr<System> system;
};

}  // namespace os
