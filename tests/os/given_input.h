#pragma once

#include <memory>
#include <string>

/// Stands for the person at the standard input of this process.
class GivenInput {
 public:
  GivenInput();
  GivenInput(const GivenInput&) = delete;
  GivenInput& operator=(const GivenInput&) = delete;
  ~GivenInput();

  void Type(const std::string& keys);

  /// Nothing more comes.
  void End();

  /// As Ctrl-C does.
  static void Interrupt();

 private:
  struct System;
  std::unique_ptr<System> system;
};
