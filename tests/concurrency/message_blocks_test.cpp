#include "platform/concurrency/message_blocks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>

#include "platform/concurrency/task.h"
#include "tests/support/virtual_clock.h"

namespace concurrency {
namespace {

using namespace std::chrono_literals;

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

TEST(Buffer, SeveralReceiversEachGetOneOfTheValues) {
  constexpr int kReceivers = 8;
  unbounded_buffer<int> values;
  std::atomic<int> sum = 0;
  for (int i = 0; i < kReceivers; ++i) create_task([&] { sum += values.receive(); });
  wait_until_quiet();
  for (int i = 1; i <= kReceivers; ++i) values.send(i);
  wait_until_idle();
  EXPECT_EQ(sum, kReceivers * (kReceivers + 1) / 2);
}

// What a timer sends, with the time it came at.
class Ticks : public ITarget<int> {
 public:
  explicit Ticks(VirtualClock& tickedBy) : clock(tickedBy) {}

  void send(int) override { times.push_back(clock.Now() / 1ms); }

  VirtualClock& clock;
  std::vector<std::int64_t> times;
};

using Times = std::vector<std::int64_t>;

TEST(Timer, TicksByTheClockUntilStoppedAndAgainWhenStarted) {
  VirtualClock clock;
  Ticks ticks(clock);
  timer<int> ticking(20, 7, &ticks, true);
  clock.Advance(50ms);
  ticking.start();
  clock.Advance(10ms);
  ticking.start();  // goes on as it was
  clock.Advance(59ms);
  EXPECT_EQ(ticks.times, (Times{70, 90, 110}));
  ticking.stop();
  clock.Advance(1h);
  EXPECT_EQ(ticks.times, (Times{70, 90, 110}));
  ticks.times.clear();
  ticking.start();
  clock.Advance(40ms);
  EXPECT_EQ(ticks.times, (Times{3'600'139, 3'600'159}));
}

TEST(Timer, ATimerThatDoesNotRepeatTicksOncePerStart) {
  VirtualClock clock;
  Ticks ticks(clock);
  timer<int> once(20, 7, &ticks, false);
  once.start();
  clock.Advance(100ms);
  once.start();
  clock.Advance(100ms);
  EXPECT_EQ(ticks.times, (Times{20, 120}));
}

// Stops and starts its own timer at its ticks.
class Restarting : public ITarget<int> {
 public:
  explicit Restarting(VirtualClock& tickedBy) : ticks(tickedBy) {}

  void send(int value) override {
    ticks.send(value);
    ticking.stop();
    if (ticks.times.size() < 3) ticking.start();
  }

  Ticks ticks;
  timer<int> ticking{20, 7, this, true};
};

TEST(Timer, ATickMayStopAndStartItsTimer) {
  VirtualClock clock;
  Restarting restarting(clock);
  restarting.ticking.start();
  clock.Advance(1s);
  EXPECT_EQ(restarting.ticks.times, (Times{20, 40, 60}));
}

TEST(Timer, StoppingWaitsForTheTickThatRuns) {
  VirtualClock clock;
  unbounded_buffer<int> entered;
  unbounded_buffer<int> gate;
  std::atomic<bool> left = false;
  struct Blocking : ITarget<int> {
    std::function<void()> tick;
    void send(int) override { tick(); }
  } target;
  target.tick = [&] {
    entered.send(0);
    gate.receive();
    left = true;
  };
  timer<int> ticking(20, 7, &target, true);
  ticking.start();
  clock.Advance(20ms);
  entered.receive();
  bool leftBeforeStopReturned = false;
  const auto stopping = create_task([&] {
    ticking.stop();
    leftBeforeStopReturned = left;
  });
  wait_until_quiet();
  EXPECT_FALSE(stopping.is_done());
  gate.send(0);
  stopping.get();
  EXPECT_TRUE(leftBeforeStopReturned);
}

TEST(Timer, KeepsToTheClockItWasStartedUnder) {
  VirtualClock clock;
  Ticks ticks(clock);
  timer<int> ticking(20, 7, &ticks, true);
  ticking.start();
  {
    VirtualClock other(1000);
    other.Advance(1h);
  }
  os::SetClock(&clock);
  clock.Advance(20ms);
  EXPECT_EQ(ticks.times, Times{20});
}

// Time passes on one thread while timers come and go on another.
TEST(Timer, StartingStoppingAndDestroyingAtAnyMomentLeavesNoTickBehind) {
  VirtualClock clock;
  std::atomic<bool> ended = false;
  std::thread time([&] {
    while (!ended) clock.Advance(1ms);
  });
  std::minstd_rand random(1);
  int ticked = 0;
  for (int round = 0; round < 300; ++round) {
    auto alive = std::make_shared<std::atomic<int>>(0);
    {
      call<int> target([&alive](int) { ++*alive; });
      timer<int> ticking(1, round, &target, true);
      ticking.start();
      for (auto turns = random() % 2000; turns > 0; --turns) std::this_thread::yield();
      if (round % 3 == 0) ticking.stop();
      if (round % 6 == 0) ticking.start();
    }
    ticked += *alive;
    alive = nullptr;  // a tick that came now would find nothing
  }
  ended = true;
  time.join();
  EXPECT_GT(ticked, 0);
}

}  // namespace
}  // namespace concurrency
