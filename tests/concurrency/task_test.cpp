#include "platform/concurrency/task.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <vector>

#include "platform/concurrency/message_blocks.h"

namespace concurrency {
namespace {

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

}  // namespace
}  // namespace concurrency
