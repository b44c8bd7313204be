#include "platform/duilib/ui_main_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <thread>
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

}  // namespace
