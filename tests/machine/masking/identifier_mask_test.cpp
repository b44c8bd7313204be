#include "platform/machine/masking/identifier_mask.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "platform/machine/masking/identifier_hash.h"

namespace {

using machine::IdentifierMask;
using machine::InfoCall;

TEST(IdentifierHashTest, IsTheBeginningOfTheSha256AndEmptyForNothing) {
  EXPECT_EQ(machine::HashIdentifier("abc"), "#ba7816bf8f01");
  EXPECT_EQ(machine::HashIdentifier(""), "");
}

TEST(IdentifierMaskTest, FindsIdentifiersWhereverAndHoweverTheyStand) {
  machine::Inventory info;
  info.Set(InfoCall::BaseboardSerialNumber, L" Board77 ");
  info.Set(InfoCall::MemorySerialNumber, L"B7", 0);
  info.Set(InfoCall::MemorySerialNumber, L"#0123456789ab", 1);
  info.Set(InfoCall::DiskSerialNumber, L"Board77-2", 0);
  info.Set(InfoCall::DiskSerialNumber, L"   ", 1);
  info.Set(InfoCall::AdapterMacAddress, L"02-00-5e-00-00-1F");
  const IdentifierMask mask(info);

  const std::string board = machine::HashIdentifier("Board77");
  const std::string module = machine::HashIdentifier("B7");
  const std::string disk = machine::HashIdentifier("Board77-2");
  const std::string known = machine::HashIdentifier("02005E00001F");
  const std::string unknown = machine::HashIdentifier("AABBCCDDEE01");
  const std::pair<std::string, std::string> cases[] = {
      {"Board77", board},
      {"xBOARD77y board77", "x" + board + "y " + board},
      {"of Board77-2", "of " + disk},
      {"B7, AB7 B7.1 (b7)", module + ", AB7 B7.1 (" + module + ")"},
      {"02:00:5e:00:00:1f 0200.5E00.001f", known + " " + known},
      {"mac02005e00001f", "mac" + known},
      {"AA:BB:CC:DD:EE:01 aabb.ccdd.ee01", unknown + " " + unknown},
      {"aabbccddee01 31.0.15.1 2024-01-15", "aabbccddee01 31.0.15.1 2024-01-15"},
      {"AA:BB-CC:DD:EE:01", "AA:BB-CC:DD:EE:01"},
      {"#0123456789ab", "#0123456789ab"},
      {"02:00:5e:00:00", "02:00:5e:00:00"},
      {"", ""},
      {"   ", "   "}};
  for (const auto& [text, masked] : cases) {
    EXPECT_EQ(mask.Apply(text), masked);
    EXPECT_EQ(IdentifierMask().Apply(text), text);
  }
}

}  // namespace
