#include "platform/util/identifier_hash.h"

#include <nettle/sha2.h>

#include <array>
#include <cstdint>

namespace util {
namespace {

constexpr std::size_t kShownBytes = 6;

}  // namespace

std::string HashIdentifier(std::string_view identifier) {
  if (identifier.empty()) return {};
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, identifier.size(),
                reinterpret_cast<const std::uint8_t*>(identifier.data()));
  std::array<std::uint8_t, kShownBytes> bytes{};
  sha256_digest(&context, bytes.size(), bytes.data());

  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string hash = "#";
  for (const std::uint8_t byte : bytes) {
    hash += kDigits[byte >> 4];
    hash += kDigits[byte & 0xF];
  }
  return hash;
}

}  // namespace util
