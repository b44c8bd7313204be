#include "platform/duilib/queue/ui_main_queue.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <string>

#include "platform/duilib/notify/contained_call.h"

namespace DuiLib {
namespace {

// The pin comes first: members are destroyed from the last to the first, and the closure's code
// must still be there when the closure is destroyed.
struct Waiting {
  os::ModulePin pin;
  std::function<void()> closure;
};

class Queue {
 public:
  // Whether no other closure waits.
  bool Add(Waiting waiting) {
    const std::lock_guard lock(mutex);
    closures.push_back(std::move(waiting));
    return closures.size() == 1;
  }

  bool IsEmpty() {
    const std::lock_guard lock(mutex);
    return closures.empty();
  }

  // How many closures were ever added.
  std::uint64_t Added() {
    const std::lock_guard lock(mutex);
    return taken + closures.size();
  }

  // The oldest closure if it is among the first `limit` ever added.
  std::optional<Waiting> TakeBefore(std::uint64_t limit) {
    const std::lock_guard lock(mutex);
    if (closures.empty() || taken >= limit) return std::nullopt;
    std::optional<Waiting> oldest(std::move(closures.front()));
    closures.pop_front();
    ++taken;
    return oldest;
  }

 private:
  std::mutex mutex;
  std::deque<Waiting> closures;
  std::uint64_t taken = 0;
};

Queue& TheQueue() {
  static Queue& queue = *new Queue;
  return queue;
}

// What wakes the window loop.
struct WakeUp {
  std::mutex mutex;  // held during a call, so that none outlives its loop
  Waiting call;
};

WakeUp& TheWakeUp() {
  static WakeUp& wakeUp = *new WakeUp;
  return wakeUp;
}

void WakeLoop() {
  WakeUp& wakeUp = TheWakeUp();
  const std::lock_guard lock(wakeUp.mutex);
  if (wakeUp.call.closure) CallContained(wakeUp.call.closure, "the wake-up of the UI loop");
}

}  // namespace

void UIMainQueue::Post(std::function<void()> closure, const void* owner) {
  if (TheQueue().Add({os::ModulePin::OfAddress(owner), std::move(closure)})) WakeLoop();
}

void UIMainQueue::KeepWakeUp(std::function<void()> wakeUp, const void* owner) {
  Waiting kept{wakeUp ? os::ModulePin::OfAddress(owner) : os::ModulePin(), std::move(wakeUp)};
  {
    const std::lock_guard lock(TheWakeUp().mutex);
    std::swap(TheWakeUp().call.closure, kept.closure);
    std::swap(TheWakeUp().call.pin, kept.pin);
  }
  if (!TheQueue().IsEmpty()) WakeLoop();
}

std::size_t UIMainQueue::RunPending() {
  Queue& queue = TheQueue();
  const std::uint64_t limit = queue.Added();
  std::size_t ran = 0;
  // One at a time, not as a batch: a closure that opens a modal window runs the rest of this round
  // from that window's loop, still in order.
  while (const auto oldest = queue.TakeBefore(limit)) {
    CallContained(oldest->closure, "a UI closure");
    ++ran;
  }
  if (!queue.IsEmpty()) WakeLoop();
  return ran;
}

}  // namespace DuiLib
