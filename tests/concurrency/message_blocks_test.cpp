#include "platform/concurrency/message_blocks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

#include "platform/concurrency/task.h"
#include "platform/os/clock.h"

namespace concurrency {
namespace {

TEST(Call, ValuesAreHandledInOrderAndAFailureDoesNotStopTheNext) {
  std::vector<int> handled;
  {
    call<int> target([&handled](int value) {
      if (value == 500) throw std::runtime_error("is logged");
      handled.push_back(value);
    });
    for (int i = 0; i < 1000; ++i) target.send(i);
  }
  ASSERT_EQ(handled.size(), 999);
  EXPECT_TRUE(std::is_sorted(handled.begin(), handled.end()));
}

TEST(Timer, TicksUntilStoppedAndNeverAfterwards) {
  unbounded_buffer<int> ticks;
  timer<int> ticking(1, 7, &ticks, true);
  ticking.start();
  for (int i = 0; i < 5; ++i) EXPECT_EQ(ticks.receive(), 7);
  ticking.stop();
  int value = 0;
  while (ticks.try_receive(value)) {
  }
  // Another timer's ticks pass; the stopped one must not add its own.
  unbounded_buffer<int> others;
  timer<int> other(1, 8, &others, true);
  other.start();
  for (int i = 0; i < 20; ++i) others.receive();
  EXPECT_FALSE(ticks.try_receive(value));
}

TEST(Timer, ATimerThatDoesNotRepeatTicksOnce) {
  unbounded_buffer<int> ticks;
  timer<int> once(1, 7, &ticks, false);
  once.start();
  EXPECT_EQ(ticks.receive(), 7);
  unbounded_buffer<int> others;
  timer<int> other(1, 8, &others, true);
  other.start();
  for (int i = 0; i < 20; ++i) others.receive();
  int value = 0;
  EXPECT_FALSE(ticks.try_receive(value));
}

TEST(Timer, StartingStoppingAndDestroyingAtAnyMomentIsSafe) {
  std::atomic<int> handled = 0;
  for (int i = 0; i < 300; ++i) {
    call<int> target([&handled](int) { ++handled; });
    timer<int> ticking(1, i, &target, true);
    ticking.start();
    if (i % 3 == 0) ticking.stop();
    if (i % 6 == 0) ticking.start();
    if (i % 50 == 0) os::CurrentClock().Sleep(std::chrono::milliseconds(2));
  }
  wait_until_idle();
  const int counted = handled;
  EXPECT_EQ(handled, counted);
}

}  // namespace
}  // namespace concurrency
