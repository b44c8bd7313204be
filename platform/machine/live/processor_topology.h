#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace machine {

/// What the system tells of the processors that are in use; 0 for what it does not tell.
struct ProcessorTopology {
  static constexpr std::size_t kCacheLevels = 3;

  std::uint64_t cores = 0;
  std::uint64_t threads = 0;
  std::array<std::uint64_t, kCacheLevels> cacheKilobytes{};  // by level, all caches together
};

ProcessorTopology ReadProcessorTopology();

}  // namespace machine
