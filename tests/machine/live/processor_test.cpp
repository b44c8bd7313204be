#include "platform/os/processor.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/machine/processor_tests/processor_tests.h"
#include "tests/machine/live/fake_system.h"

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

TEST(Cpuid, IsZeroAboveTheHighestLeaf) {
  EXPECT_NE(os::Cpuid(0)[1], 0U);
  EXPECT_EQ(os::Cpuid(0x7FFFFFFF), (std::array<std::uint32_t, 4>{}));
}

machine::Block First(const machine::Block& a, const machine::Block&) {
  return a;
}

machine::Block FirstButSometimesWrong(const machine::Block& a, const machine::Block&) {
  machine::Block wrong = a;
  if (a.bytes[15] == 0x11) wrong.bytes[0] ^= 1;
  return wrong;
}

TEST(ProcessorTests, CountResultsThatDifferByASingleBit) {
  using machine::Operands;
  const auto rows = std::to_array<machine::OperationRow>(
      {{"good", Operands::Bits, First, First},
       {"bad", Operands::Bits, FirstButSometimesWrong, First}});
  const machine::TestAnswer answer = machine::CompareOperations(rows);
  EXPECT_GT(answer.code, 0U);
  EXPECT_LT(answer.code, 50U);
  EXPECT_EQ(answer.text, L"wrong results: bad " + std::to_wstring(answer.code));
}

TEST(ProcessorTests, PassOnThisProcessor) {
  using machine::SupportCall, machine::TestCall;
  const std::pair<SupportCall, TestCall> sets[] = {{SupportCall::Sse, TestCall::CpuSse},
                                                   {SupportCall::Sse2, TestCall::CpuSse2},
                                                   {SupportCall::Ssse3, TestCall::CpuSsse3},
                                                   {SupportCall::Sse41, TestCall::CpuSse41},
                                                   {SupportCall::Sse42, TestCall::CpuSse42}};
  for (const auto& [support, test] : sets) {
    const machine::TestAnswer answer = machine::TestProcessor(test);
    EXPECT_EQ(answer.code, machine::ProcessorSupports(support) ? 0U : 1U);
    EXPECT_EQ(answer.text.empty(), machine::ProcessorSupports(support));
  }
  EXPECT_EQ(machine::TestProcessor(TestCall::CpuSse3).code, 0U);
  EXPECT_FALSE(machine::ProcessorSupports(SupportCall::Bluetooth));
}

}  // namespace
