#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "platform/machine/live/edid.h"

// Decodes the bytes. A display's name fits its place in the block and is plain text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto display = machine::ParseEdid(std::as_bytes(std::span(data, size)));
  if (!display) return 0;
  constexpr std::size_t kLongestName = 4 * 14;
  if (display->name.empty() || display->name.size() > kLongestName) std::abort();
  for (const char letter : machine::CaptionOf(*display))
    if (letter < ' ' || letter > '~') std::abort();
  return 0;
}
