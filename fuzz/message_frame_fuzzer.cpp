#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "platform/message/frame.h"

namespace {

// The frames found, encoded again, and whether the bytes were refused.
struct Found {
  std::vector<std::uint8_t> bytes;
  bool refused = false;

  bool operator==(const Found&) const = default;
};

Found Read(const std::uint8_t* data, std::size_t size, std::size_t chunk) {
  message::FrameReader reader;
  Found found;
  try {
    for (std::size_t at = 0; at < size; at += chunk) {
      reader.Feed({data + at, std::min(chunk, size - at)});
      while (const auto frame = reader.Next()) {
        message::DecodeIds(*frame);
        const auto encoded = message::EncodeFrame(*frame);
        found.bytes.insert(found.bytes.end(), encoded.begin(), encoded.end());
      }
    }
  } catch (const message::FrameError&) {
    found.refused = true;
  }
  return found;
}

}  // namespace

// What is found is the stream's own beginning, however it is cut: the first byte says how.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::size_t chunk = std::size_t{1} + data[0];
  const Found whole = Read(data + 1, size - 1, size);
  if (Read(data + 1, size - 1, chunk) != whole) std::abort();
  if (!std::equal(whole.bytes.begin(), whole.bytes.end(), data + 1)) std::abort();
  return 0;
}
