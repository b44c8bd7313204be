#include "platform/util/identifier_hash.h"

#include <nettle/sha2.h>

#include <array>
#include <cstdint>

namespace util {

std::string HashIdentifier(std::string_view identifier) {
  constexpr std::size_t kShownBytes = 6;
  constexpr std::string_view kDigits = "0123456789abcdef";
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, identifier.size(),
                reinterpret_cast<const std::uint8_t*>(identifier.data()));
  std::array<std::uint8_t, kShownBytes> digest{};
  sha256_digest(&context, digest.size(), digest.data());
  std::string text = "#";
  for (const std::uint8_t byte : digest) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  }
  return text;
}

}  // namespace util
