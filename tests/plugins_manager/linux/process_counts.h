#pragma once

#include <algorithm>
#include <cstddef>
#include <filesystem>

/// What a process must not lose piece by piece.
struct ProcessCounts {
  static ProcessCounts Now() { return {Entries("/proc/self/task"), Entries("/proc/self/fd")}; }

  bool operator==(const ProcessCounts&) const = default;

  std::ptrdiff_t threads;
  std::ptrdiff_t descriptors;

 private:
  static std::ptrdiff_t Entries(const char* folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
  }
};
