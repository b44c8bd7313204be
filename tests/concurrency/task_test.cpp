#include "platform/concurrency/task.h"

#include <gtest/gtest.h>

#include <atomic>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/concurrency/message_blocks.h"
#include "tests/support/virtual_clock.h"

namespace concurrency {
namespace {

using namespace std::chrono_literals;

std::string MessageOf(const task<void>& ended) {
  try {
    ended.get();
    return "none";
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(Task, AnErrorReachesTheContinuationAndThatOneEndsWell) {
  std::string seen;
  const auto failing = create_task([] { throw std::runtime_error("disk on fire"); });
  const auto following =
      failing.then([&seen](const task<void>& ended) { seen = MessageOf(ended); });
  following.get();
  EXPECT_EQ(seen, "disk on fire");
}

TEST(Task, TheCallableIsGoneWhenTheTaskIsDone) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watched = held;
  const auto holding = create_task([held = std::move(held)] {});
  holding.get();
  EXPECT_TRUE(watched.expired());
}

TEST(Task, ContinuationsRunWhenAddedBeforeOrAfterTheEnd) {
  unbounded_buffer<int> go;
  std::atomic<int> ran = 0;
  const auto waiting = create_task([&go] { go.receive(); });
  const auto early = waiting.then([&ran](const auto&) { ++ran; });
  go.send(1);
  early.get();
  waiting.then([&ran](const auto&) { ++ran; }).get();
  EXPECT_EQ(ran, 2);
}

TEST(Task, EveryoneWhoWaitsForOneTaskGoesOnWhenItEnds) {
  unbounded_buffer<int> go;
  std::atomic<int> ran = 0;
  const auto waitedFor = create_task([&go] { go.receive(); });
  for (int i = 0; i < 4; ++i)
    create_task([&] {
      waitedFor.get();
      ++ran;
    });
  wait_until_quiet();
  go.send(1);
  wait_until_idle();
  EXPECT_EQ(ran, 4);
}

// A fixed number of threads would hang here: each task waits for the next one.
TEST(Task, TasksThatWaitForEachOtherDoNotStarve) {
  constexpr int kTasks = 64;
  std::vector<unbounded_buffer<int>> buffers(kTasks + 1);
  std::vector<task<void>> tasks;
  for (std::size_t i = 0; i < kTasks; ++i)
    tasks.push_back(create_task([&buffers, i] { buffers[i].send(buffers[i + 1].receive()); }));
  buffers[kTasks].send(7);
  EXPECT_EQ(buffers[0].receive(), 7);
  for (const auto& each : tasks) each.get();
}

TEST(Task, WaitingUntilIdleCoversDetachedWorkAndContinuations) {
  unbounded_buffer<int> go;
  std::atomic<int> ran = 0;
  run_detached([&] {
    go.receive();
    ++ran;
    throw std::runtime_error("is logged");
  });
  create_task([&] { go.receive(); }).then([&ran](const auto&) { ++ran; });
  go.send(1);
  go.send(1);
  wait_until_idle();
  EXPECT_EQ(ran, 2);
}

// One who steps through time sees each moment settled before the next.
TEST(Task, AStepThroughTimeEndsWhenAllWorkHasEndedOrRests) {
  VirtualClock clock;
  std::mutex mutex;
  std::vector<std::string> done;
  const auto note = [&](const std::string& what) {
    const std::lock_guard lock(mutex);
    done.push_back(std::to_string(clock.Now() / 1ms) + " " + what);
  };
  unbounded_buffer<int> gate;
  call<int> called([&](int) { note("tick"); });
  timer<int> ticking(30, 0, &called, true);
  const auto sleeping = create_task([&] {
    clock.Sleep(50ms);
    note("slept");
    gate.send(1);
  });
  create_task([&] {
    gate.receive();
    note("came through the gate");
  });
  create_task([&] {
    sleeping.get();
    clock.Sleep(25ms);
    note("slept after another");
  });
  ticking.start();
  clock.Advance(49ms);
  EXPECT_EQ(done, std::vector<std::string>{"30 tick"});
  clock.Advance(51ms);
  EXPECT_EQ(done, (std::vector<std::string>{"30 tick", "50 slept", "50 came through the gate",
                                            "60 tick", "75 slept after another", "90 tick"}));
  ticking.stop();
}

// Several workers wait for work at any time here, and several threads hand it over. A wake-up that
// is lost shows as a test that does not end; --gtest_repeat makes the soak longer.
TEST(Task, NoStartIsLostHoweverManyWorkersWait) {
  constexpr int kStarters = 4;
  constexpr int kStarts = 250;
  std::atomic<int> ran = 0;
  std::vector<std::thread> starters;
  starters.reserve(kStarters);
  for (int i = 0; i < kStarters; ++i)
    starters.emplace_back([&ran] {
      unbounded_buffer<int> answers;
      for (int start = 0; start < kStarts; ++start) {
        const auto asked = create_task([&] { answers.send(start); });
        create_task([&] { ran += answers.receive() == start ? 1 : 0; }).get();
        asked.get();
      }
    });
  for (std::thread& starter : starters) starter.join();
  EXPECT_EQ(ran, kStarters * kStarts);
}

}  // namespace
}  // namespace concurrency
