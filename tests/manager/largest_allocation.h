#pragma once

#include <atomic>
#include <cstddef>

/// Bytes of the largest piece of memory that the program has asked for since this was set to 0. On
/// Windows what the C++ library asks for is not seen.
extern std::atomic<std::size_t> largestAllocation;
