#include "platform/os/processor.h"

#include <gtest/gtest.h>

namespace {

TEST(Cpuid, IsZeroAboveTheHighestLeaf) {
  EXPECT_NE(os::Cpuid(0)[1], 0U);
  EXPECT_EQ(os::Cpuid(0x7FFFFFFF), (std::array<std::uint32_t, 4>{}));
}

}  // namespace
