#include "platform/os/processor.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemTimes, CountIdleIntoKernelAndGoOn) {
  const os::SystemTimes before = os::GetSystemTimes();
  EXPECT_GT(before.user, 0U);
  EXPECT_GE(before.kernel, before.idle);
  const os::SystemTimes after = os::GetSystemTimes();
  EXPECT_GE(after.idle, before.idle);
  EXPECT_GE(after.kernel, before.kernel);
}

TEST(CurrentClock, IsThatOfAProcessorOfOurDays) {
  EXPECT_GT(os::CurrentClockMhz(), 100U);
  EXPECT_LT(os::CurrentClockMhz(), 20'000U);
}

}  // namespace
