#pragma once

#include <chrono>
#include <cstdint>
#include <ratio>
#include <string>

namespace common {

/// A time that is not negative in seconds with one digit behind the point, "1.9 s", in every
/// locale.
inline std::string SecondsText(std::chrono::nanoseconds time) {
  using Tenths = std::chrono::duration<std::int64_t, std::deci>;
  const std::int64_t tenths = std::chrono::round<Tenths>(time).count();
  return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10) + " s";
}

}  // namespace common
