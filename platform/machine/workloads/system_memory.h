#pragma once

#include <cstdint>

namespace machine {

/// The memory that the system manages; 0 for what it does not tell.
struct SystemMemory {
  std::uint64_t totalKilobytes = 0;
  std::uint64_t availableKilobytes = 0;  // without driving out what others use
};

SystemMemory ReadSystemMemory();

}  // namespace machine
