#include "platform/machine/live/windows/raw_firmware_table.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/machine/live/category.h"
#include "tests/machine/live/smbios_bytes.h"

namespace {

std::string Structures(const std::string& raw) {
  const auto structures = machine::StructuresOf(std::as_bytes(std::span(raw)));
  return {reinterpret_cast<const char*>(structures.data()), structures.size()};
}

TEST(RawFirmwareTable, HoldsAsMuchAsItsHeaderSaysAndThereIs) {
  const std::string version("\x00\x03\x02\x00", 4);
  EXPECT_EQ(Structures(version + std::string("\x03\x00\x00\x00", 4) + "abc"), "abc");
  EXPECT_EQ(Structures(version + std::string("\x02\x00\x00\x00", 4) + "abc"), "ab");
  EXPECT_EQ(Structures(version + std::string("\x04\x00\x00\x00", 4) + "abc"), "abc");
  EXPECT_EQ(Structures(version + std::string("\x03\x01\x00\x00", 4) + std::string(300, 'x')).size(),
            259U);
  EXPECT_EQ(Structures(version + "\xFF\xFF\xFF\xFF" + "abc"), "abc");
  EXPECT_EQ(Structures(version + std::string(4, '\0')), "");
  EXPECT_EQ(Structures(version + std::string(3, '\0')), "");
  EXPECT_EQ(Structures(""), "");
}

TEST(RawFirmwareTable, TellsWhatALaptopsFirmwareSays) {
  const std::string table = SmbiosBytes::Laptop();
  std::string raw(8, '\0');
  for (std::size_t i = 0; i < 4; ++i) raw[4 + i] = static_cast<char>(table.size() >> 8 * i);
  raw += table;
  machine::Devices devices;
  devices.firmware = machine::FirmwareOf(machine::StructuresOf(std::as_bytes(std::span(raw))));
  EXPECT_EQ(devices.firmware.productName, "TUSK 14");
  machine::MotherboardCategory().read(devices);
  machine::MemoryCategory().read(devices);
  EXPECT_EQ(devices.answers.Text(machine::InfoCall::BaseboardVersion), L"V2");
  EXPECT_EQ(devices.answers.Number(machine::InfoCall::MemoryTotal), 49152U);
  EXPECT_EQ(devices.answers.Text(machine::InfoCall::MemoryLocator, 1), L"DIMM 1");
}

}  // namespace
