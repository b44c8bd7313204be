#include "platform/os/sha256.h"

#include <windows.h>

#include <bcrypt.h>

#include <stdexcept>

namespace os {
namespace {

/// Opened once: that reads the registry.
BCRYPT_ALG_HANDLE Algorithm() {
  static const BCRYPT_ALG_HANDLE algorithm = [] {
    BCRYPT_ALG_HANDLE opened = nullptr;
    BCryptOpenAlgorithmProvider(&opened, BCRYPT_SHA256_ALGORITHM, nullptr, 0);
    return opened;
  }();
  return algorithm;
}

}  // namespace

std::array<std::uint8_t, kSha256Size> Sha256(std::string_view bytes) {
  std::array<std::uint8_t, kSha256Size> hash{};
  // The function does not write to its input.
  auto* const input = reinterpret_cast<PUCHAR>(const_cast<char*>(bytes.data()));
  const NTSTATUS status =
      BCryptHash(Algorithm(), nullptr, 0, input, static_cast<ULONG>(bytes.size()), hash.data(),
                 static_cast<ULONG>(hash.size()));
  if (!BCRYPT_SUCCESS(status)) throw std::runtime_error("the system cannot compute SHA-256");
  return hash;
}

}  // namespace os
