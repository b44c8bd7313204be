#include <gtest/gtest.h>

#include "platform/machine/live/ata_identity.h"
#include "platform/machine/live/disk.h"
#include "platform/machine/live/firmware_text.h"
#include "platform/machine/live/linux/udev_data.h"
#include "platform/machine/live/live_machine.h"
#include "tests/support/linux/system_tree.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;

constexpr const char* kClamshell = TEST_DATA_DIR "/trees/clamshell.tree";
constexpr const char* kConvertible = TEST_DATA_DIR "/trees/convertible.tree";

std::vector<std::wstring> Captions(LiveMachine& live) {
  std::vector<std::wstring> captions;
  for (std::uint64_t i = 0; i < live.Info().Number(InfoCall::DiskCount); ++i)
    captions.push_back(live.Info().Text(InfoCall::DiskCaption, static_cast<int>(i)));
  return captions;
}

TEST(Disks, ThoseThatArePluggedInAreNotTheMachines) {
  using Names = std::vector<std::wstring>;
  const SystemTree system(kClamshell);
  LiveMachine live;
  EXPECT_EQ(Captions(live), (Names{L"SAMPLE SSD 256", L"SAMPLE HD500LT-9YN14B"}));
  machine::CountExternalDisks(true);
  LiveMachine all;
  EXPECT_EQ(Captions(all),
            (Names{L"SD64G", L"SAMPLE SSD 256", L"SAMPLE HD500LT-9YN14B", L"Sample USB Disk"}));
  machine::CountExternalDisks(false);
}

TEST(Disks, AtaDisksHaveTheirWholeNames) {
  const SystemTree clamshell(kClamshell);
  LiveMachine own;
  EXPECT_EQ(own.Info().Text(InfoCall::DiskFirmwareRevision, 1), L"SC61A107");
  EXPECT_EQ(own.Info().Text(InfoCall::DiskSerialNumber, 1), L"HD-SN-000123");

  const SystemTree convertible(kConvertible);  // the disk's own page is cut short
  LiveMachine kept;
  EXPECT_EQ(Captions(kept), (std::vector<std::wstring>{L"EM64G", L"SAMPLE SOLID STATE 128"}));
  EXPECT_EQ(kept.Info().Text(InfoCall::DiskFirmwareRevision, 1), L"00A1B2C3");
  EXPECT_EQ(kept.Info().Text(InfoCall::DiskSerialNumber, 1), L"ST-000789");

  convertible.Link("/run/udev/data/b8:0", "/dev/zero");
  LiveMachine cut;
  EXPECT_EQ(Captions(cut)[1], L"SAMPLE SOLID STA");
}

TEST(Disks, APageThatHoldsNoAnswerOfTheDiskIsNone) {
  std::vector<std::byte> page(572);
  page[1] = std::byte{0x89};
  page[56] = std::byte{0xEC};
  EXPECT_FALSE(machine::ParseAtaPage(page)) << "no name";
  page[60 + 54] = std::byte{'B'};
  page[60 + 55] = std::byte{'A'};
  ASSERT_TRUE(machine::ParseAtaPage(page));
  EXPECT_EQ(machine::ParseAtaPage(page)->model, "AB");
  EXPECT_FALSE(machine::ParseAtaPage(std::span(page).first(571)));
  page[56] = std::byte{0xA1};  // another command's answer
  EXPECT_FALSE(machine::ParseAtaPage(page));
}

TEST(Memory, AnOrdinaryUserSeesTheSlots) {
  const SystemTree system(kClamshell);
  LiveMachine live;
  const machine::Inventory& info = live.Info();
  ASSERT_EQ(info.Number(InfoCall::MemoryCount), 3U);
  EXPECT_EQ(info.Number(InfoCall::MemoryTotal), 12288U);
  EXPECT_EQ(info.Text(InfoCall::MemoryPartNumber, 0), L"KST8G3200S");
  EXPECT_EQ(info.Text(InfoCall::MemorySerialNumber, 0), L"00A1B2C3");
  EXPECT_EQ(info.Number(InfoCall::MemorySpeed, 0), 3200U);
  EXPECT_EQ(info.Text(InfoCall::MemoryLocator, 1), L"DIMM B");
  EXPECT_EQ(info.Number(InfoCall::MemoryCapacity, 1), 0U);
  EXPECT_EQ(info.Text(InfoCall::MemoryManufacturer, 1), L"");
  EXPECT_EQ(info.Number(InfoCall::MemoryCapacity, 2), 4096U);
  EXPECT_EQ(info.Text(InfoCall::MemoryPartNumber, 2), L"");
}

TEST(Firmware, WhatTheMakerLeftToBeFilledInIsEmpty) {
  for (const char* filler : {"Not Specified", " To Be Filled By O.E.M. ", "default STRING", "None",
                             "00000000", "........", "FFFFFFFF", "  ", ""})
    EXPECT_EQ(machine::FirmwareText(filler), "") << filler;
  for (const char* text : {"TUSK 14", "000", "0000A000", "Default string 2", "AAAA", "Nonesuch"})
    EXPECT_EQ(machine::FirmwareText(text), text);
}

TEST(UdevData, TakesPropertiesAlone) {
  const auto known = machine::ParseUdevData("I:1\nE:A=1=2\nE:B\nE:=x\nS:E:C=3\nE:D=");
  EXPECT_EQ(known, (machine::UdevProperties{{"", "x"}, {"A", "1=2"}, {"D", ""}}));
  EXPECT_EQ(machine::DecodeUdevText("a\\x20b\\x2\\xZZ\\x5c"), "a b\\x2\\xZZ\\");
}

}  // namespace
