#include <gtest/gtest.h>

#include "platform/os/process.h"

namespace {

// The other threads are ended wherever they are, also inside a lock.
TEST(Leaving, AProcessWithWorkUnderWayEndsAtOnce) {
  constexpr int kTimes = 10;
  for (int i = 0; i < kTimes; ++i) {
    const auto left = os::RunProcess({LEAVING_PROGRAM}, std::chrono::minutes(1));
    ASSERT_TRUE(left) << "it hung, or crashed, the " << i << ". time";
    ASSERT_EQ(left->exitStatus, 0);
  }
}

}  // namespace
