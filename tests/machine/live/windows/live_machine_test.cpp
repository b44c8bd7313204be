#include "platform/machine/live/live_machine.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/os/processor.h"

namespace {

using machine::InfoCall;
using machine::LiveMachine;
using machine::TestCall;

TEST(LiveMachine, CountsProcessorsAndMemory) {
  LiveMachine live;
  const machine::Inventory& info = live.Info();
  EXPECT_EQ(info.Number(InfoCall::CpuCoreThreads), os::ProcessorCount());
  EXPECT_GE(info.Number(InfoCall::CpuCoreNumbers), 1U);
  EXPECT_LE(info.Number(InfoCall::CpuCoreNumbers), os::ProcessorCount());
  EXPECT_GE(info.Number(InfoCall::CpuL1CacheSize), 1U);
  EXPECT_GT(info.Number(InfoCall::CpuL3CacheSize), info.Number(InfoCall::CpuL1CacheSize));
  EXPECT_GE(info.Number(InfoCall::MemoryTotal), 256U);
  EXPECT_LT(info.Number(InfoCall::MemoryTotal), std::uint64_t{1} << 24);
  EXPECT_NE(info.Text(InfoCall::CpuName), L"");
}

TEST(LiveMachine, AnswersEveryCallFromManyThreadsAtOnce) {
  LiveMachine live;
  std::vector<std::jthread> threads;
  threads.reserve(4);
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&] {
      EXPECT_EQ(live.Info().Number(InfoCall::CpuCoreThreads), os::ProcessorCount());
      EXPECT_EQ(live.Test(TestCall::MemoryStuckAddress, 0, -1).code, 0U);
      EXPECT_EQ(live.Test(TestCall::CpuSse2, 0, -1).code, 0U);
      EXPECT_EQ(live.Test(TestCall::AudioDevice, 0, -1).code, 1U);
      EXPECT_FALSE(live.Test(TestCall::BiometricDevice, 0, -1).pass);
      EXPECT_EQ(live.Test(TestCall::KeyboardHotKey, 0, -1).code, 0U);
      EXPECT_NE(live.Repair(machine::RepairCall::Audio, 0, 1).code, 0U);
    });
}

}  // namespace
