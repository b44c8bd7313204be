#include "platform/machine/live/windows/disk_description.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using machine::DescribeDisk;
using machine::DriveAnswers;

constexpr std::size_t kTextsBegin = 36;

/// A descriptor as a driver answers it: numbers, then texts, each with its end.
class Descriptor {
 public:
  Descriptor() : bytes(kTextsBegin) {}

  Descriptor& Vendor(const std::string& text) { return Text(12, text); }
  Descriptor& Model(const std::string& text) { return Text(16, text); }
  Descriptor& Revision(const std::string& text) { return Text(20, text); }
  Descriptor& Serial(const std::string& text) { return Text(24, text); }
  Descriptor& Offset(std::size_t place, std::uint32_t offset) {
    for (std::size_t i = 0; i < 4; ++i) bytes[place + i] = std::byte(offset >> 8 * i & 0xFF);
    return *this;
  }
  Descriptor& CutTo(std::size_t size) {
    bytes.resize(size);
    return *this;
  }

  DriveAnswers Of(std::uint64_t size, std::optional<bool> hasSeekPenalty = {}) const {
    return {bytes, size, hasSeekPenalty};
  }

 private:
  Descriptor& Text(std::size_t place, const std::string& text) {
    Offset(place, static_cast<std::uint32_t>(bytes.size()));
    for (const char c : text + '\0') bytes.push_back(std::byte(c));
    return *this;
  }

  std::vector<std::byte> bytes;
};

TEST(DescribeDisk, TakesItsTextsAndItsKind) {
  const auto fast = DescribeDisk(2, Descriptor()
                                        .Vendor("NVMe    ")
                                        .Model("Fast Disk 512  ")
                                        .Revision("FW1 ")
                                        .Serial(" N1")
                                        .Of(512'110'190'592, false));
  ASSERT_TRUE(fast);
  EXPECT_EQ(fast->device, "/dev/pd2");
  EXPECT_EQ(fast->caption, "Fast Disk 512");
  EXPECT_EQ(fast->firmwareRevision, "FW1");
  EXPECT_EQ(fast->serialNumber, "N1");
  EXPECT_EQ(fast->vendorGigabytes, 512U);
  EXPECT_TRUE(fast->isSolidState);

  const auto stick =
      DescribeDisk(10, Descriptor().Vendor("Stick Co").Model("Stick").Of(1999999999));
  ASSERT_TRUE(stick);
  EXPECT_EQ(stick->device, "/dev/pd10");
  EXPECT_EQ(stick->caption, "Stick Co Stick");
  EXPECT_EQ(stick->vendorGigabytes, 1U);
  EXPECT_FALSE(stick->isSolidState) << "a drive that does not say is none";
  EXPECT_FALSE(DescribeDisk(0, Descriptor().Model("Round").Of(1, true))->isSolidState);
  EXPECT_EQ(DescribeDisk(3, Descriptor().Serial("S1").Of(1))->caption, "PhysicalDrive3");
}

TEST(DescribeDisk, ADriveWithoutSizeOrDeviceIsNone) {
  EXPECT_FALSE(DescribeDisk(0, Descriptor().Vendor("Reader Co").Model("SD Reader").Of(0)));
  EXPECT_FALSE(DescribeDisk(0, Descriptor().Of(82'252'800'000)));
  EXPECT_FALSE(DescribeDisk(0, Descriptor().Vendor("A").Model("   ").Revision("1").Of(1)));
  EXPECT_FALSE(DescribeDisk(0, {{}, 1, false}));
}

TEST(DescribeDisk, TakesNothingFromOutsideTheDescriptor) {
  for (const std::uint32_t offset : {1U, 16U, 35U, 40U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    const auto disk = DescribeDisk(0, Descriptor().Model("X").Offset(24, offset).Of(1));
    ASSERT_TRUE(disk) << offset;
    EXPECT_EQ(disk->serialNumber, "") << offset;
  }
  const Descriptor whole = Descriptor().Model("Model").Serial("Serial");
  for (std::size_t size = 0; size < 50; ++size) {
    const auto disk = DescribeDisk(0, Descriptor(whole).CutTo(size).Of(1));
    ASSERT_EQ(disk.has_value(), size > kTextsBegin) << size;
    if (!disk) continue;
    EXPECT_EQ(disk->caption, std::string("Model").substr(0, size - kTextsBegin)) << size;
  }
}

}  // namespace
