#include "platform/os/processor.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "tests/support/linux/fake_system.h"

namespace {

TEST(SystemTimes, CountIdleIntoKernelAndWaitingIntoIdle) {
  const FakeSystem system;
  system.Write("/proc/stat", "cpu  100 20 30 400 5 6 7 80 9 9\ncpu0 1 1 1 1 1 1 1 1 1 1\n");
  const std::uint64_t unit = 10'000'000 / static_cast<std::uint64_t>(sysconf(_SC_CLK_TCK));
  const os::SystemTimes times = os::GetSystemTimes();
  EXPECT_EQ(times.idle, 405 * unit);
  EXPECT_EQ(times.kernel, (30 + 6 + 7 + 405) * unit);
  EXPECT_EQ(times.user, 120 * unit);
}

TEST(SystemTimes, AreZeroWhenTheSystemDoesNotTell) {
  const FakeSystem system;
  EXPECT_EQ(os::GetSystemTimes().kernel, 0U);
  system.Write("/proc/stat", "cpu  100 x");
  EXPECT_EQ(os::GetSystemTimes().user, 0U);
  EXPECT_EQ(os::CurrentClockMhz(), 0U);
}

TEST(CurrentClock, PrefersTheFrequencyDriver) {
  const FakeSystem system;
  system.Write("/proc/cpuinfo", "processor\t: 0\ncpu MHz\t\t: 1800.125\n\ncpu MHz\t\t: 900\n");
  EXPECT_EQ(os::CurrentClockMhz(), 1800U);
  system.Write("/sys/devices/system/cpu/cpu0/cpufreq/scaling_cur_freq", "2400000\n");
  EXPECT_EQ(os::CurrentClockMhz(), 2400U);
}

}  // namespace
