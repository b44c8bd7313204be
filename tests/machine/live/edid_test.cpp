#include "platform/machine/live/edid.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using machine::CaptionOf;
using machine::DisplayMode;
using machine::ParseEdid;

/// A base block, right in itself unless it is damaged afterwards.
class Block {
 public:
  Block() {
    bytes[0] = bytes[7] = 0;
    for (std::size_t i = 1; i < 7; ++i) bytes[i] = 0xFF;
    bytes[8] = 0x4D;  // SMP
    bytes[9] = 0xB0;
    bytes[10] = 0x42;
  }

  Block& Centimetres(std::uint8_t width, std::uint8_t height) {
    bytes[21] = width;
    bytes[22] = height;
    return *this;
  }

  /// 1920 + 160 by 1080 + 40 dots at 139.78 MHz, 60 pictures a second; 309 by 174 millimetres.
  Block& Timing() {
    return Descriptor(0, {0x9A, 0x36, 0x80, 0xA0, 0x70, 0x38, 0x28, 0x40, 0, 0, 0, 0, 0x35, 0xAE,
                          0x10, 0, 0, 0x18});
  }

  Block& Text(std::size_t place, std::uint8_t tag, const std::string& text) {
    std::vector<std::uint8_t> descriptor = {0, 0, 0, tag, 0};
    descriptor.insert(descriptor.end(), text.begin(), text.end());
    return Descriptor(place, descriptor);
  }

  Block& Byte(std::size_t place, std::uint8_t byte) {
    bytes[place] = byte;
    return *this;
  }

  std::vector<std::byte> Bytes() const {
    std::vector<std::byte> block;
    std::uint8_t sum = 0;
    for (const std::uint8_t byte : bytes) {
      block.push_back(std::byte{byte});
      sum = static_cast<std::uint8_t>(sum + byte);
    }
    block.back() = static_cast<std::byte>(0x100 - sum);
    return block;
  }

 private:
  Block& Descriptor(std::size_t place, const std::vector<std::uint8_t>& descriptor) {
    std::copy(descriptor.begin(), descriptor.end(), bytes.begin() + 54 + 18 * place);
    return *this;
  }

  std::vector<std::uint8_t> bytes = std::vector<std::uint8_t>(128);
};

TEST(Edid, TellsNameSizeAndPreferredMode) {
  const auto display = ParseEdid(Block().Timing().Text(1, 0xFC, "SAMPLE 14\n   ").Bytes());
  ASSERT_TRUE(display);
  EXPECT_EQ(CaptionOf(*display), "SAMPLE 14 (14.0\")");
  EXPECT_EQ(display->preferred, (DisplayMode{1920, 1080, 60}));
}

TEST(Edid, CallsADisplayByWhatIsKnownOfIt) {
  const std::pair<Block, const char*> cases[] = {
      {Block().Text(1, 0xFE, "MAKER\n").Text(2, 0xFE, "PANEL-1\n"), "MAKER PANEL-1"},
      {Block().Text(1, 0xFE, "PANEL-1\n").Text(3, 0xFC, "OWN NAME\n"), "OWN NAME"},
      {Block().Text(1, 0xFC, "THIRTEEN-LONG"), "THIRTEEN-LONG"},
      {Block().Text(1, 0xFC, "A\x1B[31mB\xFF\n"), "A [31mB"},
      {Block().Text(1, 0xFC, "\n"), "SMP 0042"},
      {Block().Byte(8, 0).Byte(9, 0), "??? 0042"},
      {Block().Centimetres(31, 17), "SMP 0042 (13.9\")"},
      {Block().Centimetres(31, 0), "SMP 0042"},  // the shape alone
  };
  for (const auto& [block, caption] : cases) {
    const auto display = ParseEdid(block.Bytes());
    ASSERT_TRUE(display) << caption;
    EXPECT_EQ(CaptionOf(*display), caption);
  }
}

TEST(Edid, CountsBothFieldsOfAnInterlacedPicture) {
  const auto display = ParseEdid(Block().Timing().Byte(54 + 17, 0x80).Bytes());
  ASSERT_TRUE(display);
  EXPECT_EQ(display->preferred, (DisplayMode{1920, 2160, 60}));
}

TEST(Edid, RefusesWhatIsNoBaseBlock) {
  std::vector<std::byte> block = Block().Timing().Bytes();
  EXPECT_TRUE(ParseEdid(block));
  for (std::size_t size : {std::size_t{0}, std::size_t{8}, std::size_t{127}})
    EXPECT_FALSE(ParseEdid(std::span(block).first(size)));
  block[60] ^= std::byte{1};
  EXPECT_FALSE(ParseEdid(block)) << "checksum";
  EXPECT_FALSE(ParseEdid(Block().Byte(1, 0xFE).Bytes())) << "header";
}

TEST(Edid, ATimingWithoutAPictureIsNone) {
  const auto display = ParseEdid(Block().Byte(54, 1).Bytes());
  ASSERT_TRUE(display);
  EXPECT_EQ(display->preferred, DisplayMode{});
}

}  // namespace
