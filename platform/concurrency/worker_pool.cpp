#include "platform/concurrency/worker_pool.h"

#include <utility>

#include "platform/os/workers.h"

namespace concurrency::detail {

WorkerPool& WorkerPool::Instance() {
  static WorkerPool& pool = *new WorkerPool;
  return pool;
}

void WorkerPool::Post(Job job) {
  const std::lock_guard lock(mutex);
  if (jobs.size() >= free) {
    os::StartWorker([this] { Work(); });
    ++free;
  }
  if (job.awaited) ++unfinished;
  jobs.push_back(std::move(job));
  posted.NotifyOne();
}

void WorkerPool::WaitUntilIdle() {
  std::unique_lock lock(mutex);
  finished.Wait(lock, [this] { return unfinished == 0; });
}

bool WorkerPool::IsIdle() {
  const std::lock_guard lock(mutex);
  return unfinished == 0;
}

void WorkerPool::Work() {
  for (;;) {
    std::unique_lock lock(mutex);
    posted.Wait(lock, [this] { return !jobs.empty(); });
    Job job = std::move(jobs.front());
    jobs.pop_front();
    --free;
    lock.unlock();
    Run(job);
  }
}

void WorkerPool::Run(Job& job) {
  job.work();
  job.work = nullptr;
  {
    // Free before the module may go: who waits for its end finds no thread missing.
    const std::lock_guard lock(mutex);
    ++free;
  }
  job.pin = os::ModulePin();
  const std::lock_guard lock(mutex);
  if (job.awaited && --unfinished == 0) finished.NotifyAll();
}

}  // namespace concurrency::detail
