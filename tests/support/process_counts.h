#pragma once

#include <cstddef>

/// What a process must not lose piece by piece.
struct ProcessCounts {
  static ProcessCounts Now();

  bool operator==(const ProcessCounts&) const = default;

  std::ptrdiff_t threads;
  std::ptrdiff_t descriptors;
};
