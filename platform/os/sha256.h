#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace os {

constexpr std::size_t kSha256Size = 32;

/// Throws std::runtime_error when the system has no such function. Any thread.
std::array<std::uint8_t, kSha256Size> Sha256(std::string_view bytes);

}  // namespace os
