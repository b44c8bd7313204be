#include "platform/machine/live/smbios_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/machine/live/smbios_bytes.h"

namespace {

using machine::SmbiosTable;

/// Read from a heap block of exactly this size, so that a step outside is seen.
SmbiosTable Read(const std::string& bytes) {
  const auto copy = std::make_unique<std::byte[]>(bytes.size());
  std::ranges::copy(std::as_bytes(std::span(bytes)), copy.get());
  return SmbiosTable(std::span<const std::byte>(copy.get(), bytes.size()));
}

TEST(SmbiosTable, TellsWhatALaptopsFirmwareSays) {
  const SmbiosTable table = Read(SmbiosBytes::Laptop());
  EXPECT_EQ(table.ProductName(), "TUSK 14");
  EXPECT_EQ(table.BaseBoard().maker, "Board Maker");
  EXPECT_EQ(table.BaseBoard().product, "BRD-1");
  EXPECT_EQ(table.BaseBoard().serialNumber, "B0001");
  EXPECT_EQ(table.ExternalClockMhz(), 100U);
  ASSERT_EQ(table.MemoryModules().size(), 2U);
  EXPECT_EQ(table.MemoryModules()[0].megabytes, 49152U);
  EXPECT_EQ(table.MemoryModules()[0].speed, 70000U);
  EXPECT_EQ(table.MemoryModules()[0].serialNumber, "S123");
  EXPECT_EQ(table.MemoryModules()[1].megabytes, 0U);
  EXPECT_EQ(table.MemoryModules()[1].maker, "Not Specified");
}

TEST(SmbiosTable, UnderstandsEveryFormOfASize) {
  const struct {
    std::uint32_t size, extended;
    std::uint64_t megabytes;
  } cases[] = {{8192, 0, 8192},
               {0x8000 + 2048, 0, 2},
               {0xFFFF, 4096, 0},
               {0x7FFF, 0x80008000, 0x8000},
               {0x7FFE, 4096, 0x7FFE}};
  for (const auto& each : cases) {
    const SmbiosBytes bytes =
        SmbiosBytes(17, 0x28).Number(0x0C, 2, each.size).Number(0x1C, 4, each.extended);
    EXPECT_EQ(Read(bytes.Done()).MemoryModules().at(0).megabytes, each.megabytes) << each.size;
  }
}

// Old firmware writes shorter structures: a field behind the end is not the next string's letters.
TEST(SmbiosTable, TakesNothingFromBehindAShortStructure) {
  const SmbiosTable table =
      Read(SmbiosBytes(17, 0x15).Number(0x0C, 2, 0x7FFF).Text(0x10, "A").Done());
  ASSERT_EQ(table.MemoryModules().size(), 1U);
  EXPECT_EQ(table.MemoryModules()[0].locator, "A");
  EXPECT_EQ(table.MemoryModules()[0].megabytes, 0U);
  EXPECT_EQ(table.MemoryModules()[0].speed, 0U);
  EXPECT_EQ(table.MemoryModules()[0].partNumber, "");
}

TEST(SmbiosTable, AStringThatIsNotThereIsEmpty) {
  EXPECT_EQ(Read(SmbiosBytes(1, 27).Text(4, "M").Number(5, 1, 200).Done()).ProductName(), "");
  EXPECT_EQ(Read(SmbiosBytes(1, 27).Number(5, 1, 1).Done()).ProductName(), "");
}

TEST(SmbiosTable, KeepsWhatStandsBeforeTheDamage) {
  const std::string good = SmbiosBytes(1, 27).Text(5, "Good").Done();
  const std::string board = SmbiosBytes(2, 8).Text(5, "Lost").Done();
  const std::string unterminated = board.substr(0, board.size() - 1);
  for (const std::string& damage :
       {unterminated, std::string("\x07\x00\x00", 3) + board,
        std::string("\x07\x03\x00\x00\x00", 5) + board, std::string("\x02\xFF\x00\x00", 4) + board,
        SmbiosBytes(127, 4).Done() + board}) {
    const SmbiosTable table = Read(good + damage);
    EXPECT_EQ(table.ProductName(), "Good");
    EXPECT_EQ(table.BaseBoard().product, "");
  }
}

TEST(SmbiosTable, TheFirstSystemAndBoardAreTheMainOnes) {
  const std::string table =
      SmbiosBytes(1, 27).Text(5, "Laptop").Done() + SmbiosBytes(2, 8).Text(5, "Main").Done() +
      SmbiosBytes(1, 27).Text(5, "Dock").Done() + SmbiosBytes(2, 8).Text(5, "Dock board").Done();
  EXPECT_EQ(Read(table).ProductName(), "Laptop");
  EXPECT_EQ(Read(table).BaseBoard().product, "Main");
}

// Run under the address sanitizer this finds any read outside the table.
TEST(SmbiosTable, ReadsATableCutOffAnywhere) {
  const std::string whole = SmbiosBytes::Laptop();
  std::size_t modules = 0;
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const std::size_t count = Read(whole.substr(0, size)).MemoryModules().size();
    EXPECT_GE(count, modules) << size;
    modules = count;
  }
  EXPECT_EQ(modules, 2U);
}

}  // namespace
