#include "platform/os/sha256.h"

#include <nettle/sha2.h>

namespace os {

static_assert(kSha256Size == SHA256_DIGEST_SIZE);

std::array<std::uint8_t, kSha256Size> Sha256(std::string_view bytes) {
  sha256_ctx context;
  sha256_init(&context);
  sha256_update(&context, bytes.size(), reinterpret_cast<const std::uint8_t*>(bytes.data()));
  std::array<std::uint8_t, kSha256Size> hash{};
  sha256_digest(&context, hash.size(), hash.data());
  return hash;
}

}  // namespace os
