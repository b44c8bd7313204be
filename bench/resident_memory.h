#pragma once

#include <cstddef>

/// Bytes of main memory that this process takes now.
std::size_t ResidentMemory();
