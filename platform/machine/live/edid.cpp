#include "platform/machine/live/edid.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "common/ascii.h"

namespace machine {
namespace {

constexpr std::size_t kBlockSize = 128;
constexpr auto kHeader = std::to_array<std::uint8_t>({0, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0});

constexpr std::size_t kMakerAt = 8;
constexpr std::size_t kProductAt = 10;
constexpr std::size_t kWidthAt = 21;  // centimetres; the height follows

constexpr std::size_t kDescriptorsAt = 54;
constexpr std::size_t kDescriptors = 4;
constexpr std::size_t kDescriptorSize = 18;
constexpr std::size_t kTextAt = 5;
constexpr std::uint8_t kNameTag = 0xFC;
constexpr std::uint8_t kTextTag = 0xFE;
constexpr std::uint8_t kInterlaced = 0x80;

constexpr double kMillimetresPerInch = 25.4;

/// Bytes of a block or a descriptor, whose length is known.
class Bytes {
 public:
  explicit Bytes(std::span<const std::byte> span) : bytes(span) {}

  std::uint32_t operator[](std::size_t at) const {
    return std::to_integer<std::uint32_t>(bytes[at]);
  }
  /// Low byte first.
  std::uint32_t Pair(std::size_t at) const { return (*this)[at] | (*this)[at + 1] << 8; }
  /// A number of twelve bits, whose upper four lie in the upper or lower half of another byte.
  std::uint32_t WithUpper(std::size_t at, std::size_t upperAt) const {
    return (*this)[at] | ((*this)[upperAt] >> 4) << 8;
  }
  std::uint32_t WithLower(std::size_t at, std::size_t upperAt) const {
    return (*this)[at] | ((*this)[upperAt] & 0xF) << 8;
  }
  Bytes Part(std::size_t at, std::size_t size) const { return Bytes(bytes.subspan(at, size)); }

 private:
  std::span<const std::byte> bytes;
};

bool IsBaseBlock(const Bytes& block) {
  for (std::size_t i = 0; i < kHeader.size(); ++i)
    if (block[i] != kHeader[i]) return false;
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < kBlockSize; ++i) sum += block[i];
  return sum % 256 == 0;
}

bool IsTiming(const Bytes& descriptor) {
  return descriptor.Pair(0) != 0;
}

bool HasTag(const Bytes& descriptor, std::uint8_t tag) {
  return !IsTiming(descriptor) && descriptor[3] == tag;
}

/// Ends with a line feed unless it fills its place.
std::string TextOf(const Bytes& descriptor) {
  std::string text;
  for (std::size_t i = kTextAt; i < kDescriptorSize && descriptor[i] != '\n'; ++i) {
    const auto letter = static_cast<char>(descriptor[i]);
    text += letter >= ' ' && letter <= '~' ? letter : ' ';
  }
  return common::Trimmed(text);
}

std::string CodeOf(const Bytes& block) {
  const std::uint32_t packed = block[kMakerAt] << 8 | block[kMakerAt + 1];
  std::string code;
  for (const int shift : {10, 5, 0}) {
    const std::uint32_t letter = packed >> shift & 0x1F;
    code += letter >= 1 && letter <= 26 ? static_cast<char>('A' + letter - 1) : '?';
  }
  std::array<char, 8> number{};
  std::snprintf(number.data(), number.size(), " %04X", block.Pair(kProductAt));
  return code + number.data();
}

void ReadTiming(const Bytes& timing, Edid& display) {
  const std::uint32_t width = timing.WithUpper(2, 4);
  const std::uint32_t height = timing.WithUpper(5, 7);
  const std::uint64_t dots =
      std::uint64_t{width + timing.WithLower(3, 4)} * (height + timing.WithLower(6, 7));
  if (width == 0 || height == 0) return;
  const bool isInterlaced = (timing[17] & kInterlaced) != 0;
  const std::uint64_t clock = std::uint64_t{timing.Pair(0)} * 10'000;
  display.preferred = {width, isInterlaced ? height * 2 : height,
                       static_cast<std::uint32_t>((clock + dots / 2) / dots)};
  const std::uint32_t millimetresWide = timing.WithUpper(12, 14);
  const std::uint32_t millimetresHigh = timing.WithLower(13, 14);
  if (millimetresWide == 0 || millimetresHigh == 0) return;
  display.widthMillimetres = millimetresWide;
  display.heightMillimetres = millimetresHigh;
}

}  // namespace

std::optional<Edid> ParseEdid(std::span<const std::byte> bytes) {
  if (bytes.size() < kBlockSize) return std::nullopt;
  const Bytes block(bytes.first(kBlockSize));
  if (!IsBaseBlock(block)) return std::nullopt;

  Edid display;
  if (block[kWidthAt] != 0 && block[kWidthAt + 1] != 0) {
    display.widthMillimetres = block[kWidthAt] * 10;
    display.heightMillimetres = block[kWidthAt + 1] * 10;
  }
  std::string panel;
  for (std::size_t i = 0; i < kDescriptors; ++i) {
    const Bytes descriptor = block.Part(kDescriptorsAt + i * kDescriptorSize, kDescriptorSize);
    if (i == 0 && IsTiming(descriptor)) ReadTiming(descriptor, display);
    if (HasTag(descriptor, kNameTag)) display.name = TextOf(descriptor);
    if (HasTag(descriptor, kTextTag)) panel += (panel.empty() ? "" : " ") + TextOf(descriptor);
  }
  if (display.name.empty()) display.name = common::Trimmed(panel);
  if (display.name.empty()) display.name = CodeOf(block);
  return display;
}

std::string CaptionOf(const Edid& display) {
  if (display.widthMillimetres == 0) return display.name;
  const double inches =
      std::hypot(display.widthMillimetres, display.heightMillimetres) / kMillimetresPerInch;
  std::array<char, 24> size{};
  const auto tenths = static_cast<std::uint32_t>(std::lround(inches * 10));
  std::snprintf(size.data(), size.size(), " (%u.%u\")", tenths / 10, tenths % 10);
  return display.name + size.data();
}

}  // namespace machine
