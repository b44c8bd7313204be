#pragma once

#include <deque>
#include <functional>
#include <mutex>

#include "platform/concurrency/condition.h"
#include "platform/os/module_pin.h"

namespace concurrency::detail {

/// Work with the module that it belongs to. The work is destroyed before the pin.
struct Job {
  os::ModulePin pin;
  std::function<void()> work;  // throws nothing
  bool awaited = true;         // by WaitUntilIdle
};

/// Threads that each run one job at a time; a job never waits for a thread, and a thread without a
/// job waits for the next.
class WorkerPool {
 public:
  static WorkerPool& Instance();

  void Post(Job job);
  void WaitUntilIdle();
  bool IsIdle();

 private:
  void Work();
  void Run(Job& job);

  std::mutex mutex;
  Condition posted;
  Condition finished;
  std::deque<Job> jobs;
  std::size_t free = 0;        // threads that will take a job without being told more
  std::size_t unfinished = 0;  // awaited jobs that wait, run, or still hold their module
};

}  // namespace concurrency::detail
