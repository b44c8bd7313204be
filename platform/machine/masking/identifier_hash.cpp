#include "platform/machine/masking/identifier_hash.h"

#include <array>
#include <cstdint>

#include "platform/os/sha256.h"

namespace machine {
namespace {

constexpr std::size_t kShownBytes = 6;

}  // namespace

std::string HashIdentifier(std::string_view identifier) {
  if (identifier.empty()) return {};
  const auto bytes = os::Sha256(identifier);
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string hash = "#";
  for (std::size_t i = 0; i < kShownBytes; ++i) {
    hash += kDigits[bytes[i] >> 4];
    hash += kDigits[bytes[i] & 0xF];
  }
  return hash;
}

}  // namespace machine
