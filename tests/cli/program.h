#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

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
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program();

  /// Reads its output until a line holds `text`; false when it ends before.
  bool ReadUntil(const std::string& text);

  void Interrupt();

  /// Sends interrupts, several of which may reach it as one, until it ends.
  void InterruptToTheEnd();

  Outcome Wait();

 private:
  struct Process;
  std::unique_ptr<Process> process;
  std::string output;
};

inline Outcome RunProgram(const std::vector<std::string>& arguments) {
  return Program(arguments).Wait();
}
