#include "platform/machine/workloads/processor_tests/expected.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace machine::expected {
namespace {

template <typename Element>
using Elements = std::array<Element, sizeof(Block) / sizeof(Element)>;

template <typename Element>
Elements<Element> Split(const Block& block) {
  return std::bit_cast<Elements<Element>>(block);
}

template <typename Element>
Block Join(const Elements<Element>& elements) {
  return std::bit_cast<Block>(elements);
}

/// Applies an operation to each pair of elements.
template <typename Element, typename Function>
Block ForEach(const Block& a, const Block& b, Function function) {
  const auto left = Split<Element>(a);
  const auto right = Split<Element>(b);
  Elements<Element> result;
  for (std::size_t i = 0; i < result.size(); ++i)
    result[i] = static_cast<Element>(function(left[i], right[i]));
  return Join<Element>(result);
}

/// Applies an operation to each two neighbours, those of the first operand first.
template <typename Element, typename Function>
Block ForNeighbours(const Block& a, const Block& b, Function function) {
  Elements<Element> result;
  auto next = result.begin();
  for (const Block* block : {&a, &b}) {
    const auto elements = Split<Element>(*block);
    for (std::size_t i = 0; i < elements.size(); i += 2)
      *next++ = static_cast<Element>(function(elements[i], elements[i + 1]));
  }
  return Join<Element>(result);
}

/// A compare result: all bits of the element or none.
template <typename Bits>
Bits Mask(bool isTrue) {
  return isTrue ? static_cast<Bits>(~Bits{0}) : Bits{0};
}

template <typename Narrow>
Narrow Saturate(int value) {
  return static_cast<Narrow>(std::clamp<int>(value, std::numeric_limits<Narrow>::min(),
                                             std::numeric_limits<Narrow>::max()));
}

Block LowNumber(std::uint32_t number) {
  return Join<std::uint32_t>({number, 0, 0, 0});
}

unsigned Letter(unsigned char byte) {
  return byte & 0x3F;
}

std::uint32_t Crc32c(std::uint32_t crc, unsigned char byte) {
  constexpr std::uint32_t kReversedPolynomial = 0x82F63B78;
  crc ^= byte;
  for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? kReversedPolynomial : 0);
  return crc;
}

}  // namespace

Block AddPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float y) { return x + y; });
}

Block MulPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float y) { return x * y; });
}

Block DivPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float y) { return x / y; });
}

Block SqrtPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float) { return std::sqrt(x * x + 1.0F); });
}

Block MinPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float y) { return x < y ? x : y; });
}

Block MaxPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float y) { return x > y ? x : y; });
}

Block CmpLtPs(const Block& a, const Block& b) {
  return ForEach<float>(
      a, b, [](float x, float y) { return std::bit_cast<float>(Mask<std::uint32_t>(x < y)); });
}

Block AddPd(const Block& a, const Block& b) {
  return ForEach<double>(a, b, [](double x, double y) { return x + y; });
}

Block MulPd(const Block& a, const Block& b) {
  return ForEach<double>(a, b, [](double x, double y) { return x * y; });
}

Block SqrtPd(const Block& a, const Block& b) {
  return ForEach<double>(a, b, [](double x, double) { return std::sqrt(x * x + 1.0); });
}

Block AddD(const Block& a, const Block& b) {
  return ForEach<std::uint32_t>(a, b, [](std::uint32_t x, std::uint32_t y) { return x + y; });
}

Block SubQ(const Block& a, const Block& b) {
  return ForEach<std::uint64_t>(a, b, [](std::uint64_t x, std::uint64_t y) { return x - y; });
}

Block MulLowW(const Block& a, const Block& b) {
  return ForEach<std::uint16_t>(a, b, [](unsigned x, unsigned y) { return x * y; });
}

Block MulUnsignedDq(const Block& a, const Block& b) {
  return ForEach<std::uint64_t>(
      a, b, [](std::uint64_t x, std::uint64_t y) { return (x & 0xFFFFFFFF) * (y & 0xFFFFFFFF); });
}

Block AddSaturatedB(const Block& a, const Block& b) {
  return ForEach<std::int8_t>(a, b, [](int x, int y) { return Saturate<std::int8_t>(x + y); });
}

Block CmpGtD(const Block& a, const Block& b) {
  return ForEach<std::int32_t>(
      a, b, [](std::int32_t x, std::int32_t y) { return Mask<std::uint32_t>(x > y); });
}

Block HorizontalAddPs(const Block& a, const Block& b) {
  return ForNeighbours<float>(a, b, [](float x, float y) { return x + y; });
}

Block HorizontalSubPs(const Block& a, const Block& b) {
  return ForNeighbours<float>(a, b, [](float x, float y) { return x - y; });
}

Block HorizontalAddPd(const Block& a, const Block& b) {
  return ForNeighbours<double>(a, b, [](double x, double y) { return x + y; });
}

Block AddSubPs(const Block& a, const Block& b) {
  const auto x = Split<float>(a);
  const auto y = Split<float>(b);
  return Join<float>({x[0] - y[0], x[1] + y[1], x[2] - y[2], x[3] + y[3]});
}

Block ShuffleB(const Block& a, const Block& b) {
  Block result;
  for (std::size_t i = 0; i < sizeof(Block); ++i)
    result.bytes[i] = b.bytes[i] & 0x80 ? 0 : a.bytes[b.bytes[i] & 0x0F];
  return result;
}

Block AbsW(const Block& a, const Block& b) {
  return ForEach<std::int16_t>(a, b, [](int x, int) { return x < 0 ? -x : x; });
}

Block MulAddB(const Block& a, const Block& b) {
  const auto x = Split<std::uint8_t>(a);
  const auto y = Split<std::int8_t>(b);
  Elements<std::int16_t> result;
  for (std::size_t i = 0; i < result.size(); ++i)
    result[i] = Saturate<std::int16_t>(x[2 * i] * y[2 * i] + x[2 * i + 1] * y[2 * i + 1]);
  return Join<std::int16_t>(result);
}

Block HorizontalAddD(const Block& a, const Block& b) {
  return ForNeighbours<std::uint32_t>(a, b, [](std::uint32_t x, std::uint32_t y) { return x + y; });
}

Block SignB(const Block& a, const Block& b) {
  return ForEach<std::int8_t>(a, b, [](int x, int y) { return y < 0 ? -x : y == 0 ? 0 : x; });
}

Block DotProductPs(const Block& a, const Block& b) {
  const auto x = Split<float>(a);
  const auto y = Split<float>(b);
  const float sum = x[0] * y[0] + x[1] * y[1] + x[2] * y[2] + x[3] * y[3];
  return Join<float>({sum, 0, sum, 0});
}

Block BlendB(const Block& a, const Block& b) {
  return ForEach<std::uint8_t>(a, b, [](unsigned x, unsigned y) { return (x ^ y) & 0x80 ? y : x; });
}

Block RoundPs(const Block& a, const Block& b) {
  return ForEach<float>(a, b, [](float x, float) { return std::floor(x); });
}

Block MinD(const Block& a, const Block& b) {
  return ForEach<std::int32_t>(a, b, [](std::int32_t x, std::int32_t y) { return x < y ? x : y; });
}

Block MaxUnsignedD(const Block& a, const Block& b) {
  return ForEach<std::uint32_t>(a, b,
                                [](std::uint32_t x, std::uint32_t y) { return x > y ? x : y; });
}

Block MulLowD(const Block& a, const Block& b) {
  return ForEach<std::uint32_t>(a, b, [](std::uint32_t x, std::uint32_t y) { return x * y; });
}

Block Crc32(const Block& a, const Block& b) {
  std::uint32_t crc = Split<std::uint32_t>(a)[0];
  for (std::size_t i = 0; i < 5; ++i) crc = Crc32c(crc, b.bytes[i]);
  return LowNumber(crc);
}

Block FindAnyB(const Block& a, const Block& b) {
  const auto isWanted = [&](unsigned char byte) {
    return std::ranges::any_of(a.bytes,
                               [&](auto wanted) { return Letter(wanted) == Letter(byte); });
  };
  return LowNumber(
      static_cast<std::uint32_t>(std::ranges::find_if(b.bytes, isWanted) - std::begin(b.bytes)));
}

Block EqualEachB(const Block& a, const Block& b) {
  return ForEach<std::uint8_t>(a, b, [](unsigned char x, unsigned char y) {
    return Mask<std::uint8_t>(Letter(x) == Letter(y));
  });
}

Block CmpGtQ(const Block& a, const Block& b) {
  return ForEach<std::int64_t>(
      a, b, [](std::int64_t x, std::int64_t y) { return Mask<std::uint64_t>(x > y); });
}

}  // namespace machine::expected
