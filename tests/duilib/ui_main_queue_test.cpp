#include "platform/duilib/queue/ui_main_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

namespace {

using DuiLib::UIMainQueue;

class UIMainQueueTest : public testing::Test {
 protected:
  ~UIMainQueueTest() override {
    while (UIMainQueue::RunPending() != 0) {
    }
  }
  void Append(int mark) {
    UIMainQueue::dispatch([this, mark] { marks.push_back(mark); });
  }

  std::vector<int> marks;
};

using Marks = std::vector<int>;

TEST_F(UIMainQueueTest, AThrownExceptionDoesNotDisturbTheNextClosure) {
  Append(1);
  UIMainQueue::dispatch([] { throw std::runtime_error("no such control"); });
  UIMainQueue::dispatch([] { throw 7; });
  UIMainQueue::dispatch(std::function<void()>());
  Append(2);
  EXPECT_EQ(UIMainQueue::RunPending(), 5u);
  EXPECT_EQ(marks, (Marks{1, 2}));
  EXPECT_EQ(UIMainQueue::RunPending(), 0u);
}

// A closure opens a modal window; its loop goes on with the queue before the closure returns.
TEST_F(UIMainQueueTest, WhatAClosureDispatchesWaitsForTheNextRoundOrForItsOwnLoop) {
  UIMainQueue::dispatch([this] {
    Append(2);
    EXPECT_EQ(UIMainQueue::RunPending(), 2u);
    Append(3);
  });
  Append(1);
  EXPECT_EQ(UIMainQueue::RunPending(), 1u);
  EXPECT_EQ(marks, (Marks{1, 2}));
  UIMainQueue::RunPending();
  EXPECT_EQ(marks, (Marks{1, 2, 3}));
}

TEST_F(UIMainQueueTest, AClosureIsGoneBeforeTheNextOneRuns) {
  auto held = std::make_shared<int>(1);
  const std::weak_ptr<int> watch = held;
  UIMainQueue::dispatch([held = std::move(held)] { EXPECT_EQ(*held, 1); });
  UIMainQueue::dispatch([watch] { EXPECT_TRUE(watch.expired()); });
  EXPECT_FALSE(watch.expired());
  EXPECT_EQ(UIMainQueue::RunPending(), 2u);
}

TEST_F(UIMainQueueTest, ClosuresOfManyThreadsAllRunEachThreadsInItsOrder) {
  constexpr int kThreads = 4;
  constexpr int kEach = 500;
  std::vector<Marks> seen(kThreads);
  std::atomic<int> finished = 0;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (Marks& marksOfThread : seen) {
    threads.emplace_back([&marksOfThread, &finished] {
      for (int mark = 0; mark < kEach; ++mark) {
        UIMainQueue::dispatch([&marksOfThread, mark] { marksOfThread.push_back(mark); });
      }
      ++finished;
    });
  }
  while (finished < kThreads) UIMainQueue::RunPending();
  for (std::thread& thread : threads) thread.join();
  UIMainQueue::RunPending();

  Marks inOrder;
  for (int mark = 0; mark < kEach; ++mark) inOrder.push_back(mark);
  EXPECT_EQ(seen, std::vector<Marks>(kThreads, inOrder));
}

// A window loop: it sleeps until it is woken, and then runs what waits.
class Loop {
 public:
  Loop() {
    UIMainQueue::SetWakeUp([this] {
      const std::lock_guard lock(mutex);
      ++wakeUps;
      woken.notify_all();
    });
  }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;
  ~Loop() { UIMainQueue::ClearWakeUp(); }

  int TakeWakeUps() {
    const std::lock_guard lock(mutex);
    return std::exchange(wakeUps, 0);
  }

  void SleepThenRun() {
    {
      std::unique_lock lock(mutex);
      woken.wait(lock, [this] { return wakeUps > 0; });
      wakeUps = 0;
    }
    UIMainQueue::RunPending();
  }

 private:
  std::mutex mutex;
  std::condition_variable woken;
  int wakeUps = 0;
};

TEST_F(UIMainQueueTest, ALoopIsWokenForTheFirstClosureAndForThoseLeftBehind) {
  Append(1);
  Loop loop;
  EXPECT_EQ(loop.TakeWakeUps(), 1) << "a closure waited before there was a loop";
  UIMainQueue::RunPending();
  EXPECT_EQ(loop.TakeWakeUps(), 0);
  UIMainQueue::dispatch([this] { Append(3); });
  Append(2);
  EXPECT_EQ(loop.TakeWakeUps(), 1) << "the second came while the first waited";
  UIMainQueue::RunPending();
  EXPECT_EQ(marks, (Marks{1, 2}));
  EXPECT_EQ(loop.TakeWakeUps(), 1) << "the third would wait for ever";
  UIMainQueue::RunPending();
  EXPECT_EQ(marks, (Marks{1, 2, 3}));
}

TEST_F(UIMainQueueTest, ASleepingLoopRunsWhateverManyThreadsDispatch) {
  constexpr int kThreads = 4;
  constexpr int kEach = 500;
  int ran = 0;
  Loop loop;
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int i = 0; i < kThreads; ++i)
    threads.emplace_back([&ran] {
      for (int each = 0; each < kEach; ++each) UIMainQueue::dispatch([&ran] { ++ran; });
    });
  while (ran < kThreads * kEach) loop.SleepThenRun();
  for (std::thread& thread : threads) thread.join();
}

TEST_F(UIMainQueueTest, AWakeUpThatThrowsLosesNoClosure) {
  UIMainQueue::SetWakeUp([] { throw std::runtime_error("no such window"); });
  Append(1);
  UIMainQueue::ClearWakeUp();
  UIMainQueue::RunPending();
  EXPECT_EQ(marks, Marks{1});
}

}  // namespace
