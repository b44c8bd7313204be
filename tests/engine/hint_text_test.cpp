#include "sysdiagnose/engine/hint_text.h"

#include <gtest/gtest.h>

#include "tests/support/in_force.h"

namespace orv::sysdiagnose {
namespace {

TEST(HintText, TheTableHasTwoEndsAndNothingBeyondThem) {
  const InForce inForce;
  for (const int code : {0, 1, 255, -9, INT32_MIN}) EXPECT_EQ(HintText(code), L"") << code;
  EXPECT_EQ(HintText(-1), L"IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE");
  EXPECT_EQ(HintText(-4), L"IDS_HARDWARE_DIAGNOSE_BATTERY_LOWVOLT");
  EXPECT_EQ(HintText(-8), L"IDS_HARDWARE_DIAGNOSE_FN_OPEN");
}

}  // namespace
}  // namespace orv::sysdiagnose
