#include "platform/machine/workloads/memory_buffer.h"

#include <gtest/gtest.h>

#include "tests/support/linux/fake_system.h"

namespace {

using machine::MemoryBuffer;

TEST(MemoryBuffer, TakesAnEighthOfWhatIsAvailableWithinItsBounds) {
  const FakeSystem system;
  const struct {
    const char* meminfo;
    std::size_t size;
  } cases[] = {{"MemTotal: 99999999 kB\nMemAvailable:  80000 kB\n", std::size_t{10000} * 1024},
               {"MemAvailable: 99999999 kB\n", MemoryBuffer::kLargest},
               {"MemAvailable: 18446744073709551615 kB\n", MemoryBuffer::kLargest},
               {"MemAvailable: 100 kB\n", MemoryBuffer::kSmallest},
               {"MemTotal: oops\nMemAvailable: 99999999 kB\n", MemoryBuffer::kSmallest},
               {"", MemoryBuffer::kSmallest}};
  for (const auto& each : cases) {
    system.Write("/proc/meminfo", each.meminfo);
    EXPECT_EQ(MemoryBuffer::FittingSize(), each.size) << each.meminfo;
  }
}

}  // namespace
