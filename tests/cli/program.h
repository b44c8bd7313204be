#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

/// How a program ended.
struct Outcome {
  std::optional<int> exitStatus;  // none when a signal ended it
  std::string output;
  std::string errors;
};

/// The terminal program, running. Ended and waited for when the object goes.
class Program {
 public:
  /// Starts it without input. Throws std::runtime_error when it cannot be started.
  explicit Program(const std::vector<std::string>& arguments);

  /// Reads its output until a line holds `text`; false when it ends before.
  bool ReadUntil(const std::string& text);

  void Interrupt();

  /// Sends interrupts, several of which may reach it as one, until it ends.
  void InterruptToTheEnd();

  Outcome Wait();

 private:
  TemporaryFolder folder;
  RunningProgram running;
  std::string output;
};

inline Outcome RunProgram(const std::vector<std::string>& arguments) {
  return Program(arguments).Wait();
}
