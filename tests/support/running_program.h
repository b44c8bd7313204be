#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// A program that a test started, without input. Ended and waited for when the object goes.
class RunningProgram {
 public:
  /// Throws std::runtime_error when it cannot be started. Its error output goes to the file.
  RunningProgram(const std::vector<std::string>& words, const std::filesystem::path& errors);
  RunningProgram(const RunningProgram&) = delete;
  RunningProgram& operator=(const RunningProgram&) = delete;
  ~RunningProgram();

  /// Appends what it wrote to standard output; false at the end of it.
  bool Read(std::string& text);

  void Interrupt();
  void Kill();

  bool HasEnded();

  /// Waits for its end. No exit status if it was killed.
  std::optional<int> Wait();

 private:
  struct System;
  std::unique_ptr<System> system;
};
