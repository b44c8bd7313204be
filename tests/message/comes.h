#pragma once

#include <chrono>
#include <string>
#include <thread>

#include "tests/support/test_log.h"

// Whether `holds` comes true in time.
template <typename Condition>
bool Comes(Condition holds, std::chrono::seconds limit = std::chrono::seconds(20)) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::yield();
  }
  return true;
}

// Takes the log until this stands in it; what was taken is left in `seen`.
inline bool IsLogged(const std::string& text, std::string& seen) {
  return Comes([&] {
    seen += TestLog::Instance().Take();
    return seen.find(text) != std::string::npos;
  });
}

inline bool IsLogged(const std::string& text) {
  std::string seen;
  return IsLogged(text, seen);
}
