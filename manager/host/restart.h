#pragma once

#include <memory>

namespace manager {

/// Asks the system to restart the computer. UI thread only.
class RestartOfComputer {
 public:
  RestartOfComputer();
  ~RestartOfComputer();
  RestartOfComputer(const RestartOfComputer&) = delete;
  RestartOfComputer& operator=(const RestartOfComputer&) = delete;

  /// Returns at once. Throws std::runtime_error saying why the system cannot be asked.
  void Ask();

 private:
  struct System;
  std::unique_ptr<System> system;
};

}  // namespace manager
