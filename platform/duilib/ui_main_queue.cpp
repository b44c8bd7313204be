#include "platform/duilib/ui_main_queue.h"

#include <cstdint>
#include <deque>
#include <exception>
#include <mutex>
#include <optional>
#include <string>

#include "common/log.h"

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
  void Add(Waiting waiting) {
    const std::lock_guard lock(mutex);
    closures.push_back(std::move(waiting));
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

void ReportFailure(const std::string& reason) {
  COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"), "a UI closure failed: " + reason);
}

void Run(const std::function<void()>& closure) {
  try {
    closure();
  } catch (const std::exception& error) {
    ReportFailure(error.what());
  } catch (...) {
    ReportFailure("unknown exception");
  }
}

}  // namespace

void UIMainQueue::Post(std::function<void()> closure, const void* owner) {
  TheQueue().Add({os::ModulePin::OfAddress(owner), std::move(closure)});
}

std::size_t UIMainQueue::RunPending() {
  Queue& queue = TheQueue();
  const std::uint64_t limit = queue.Added();
  std::size_t ran = 0;
  // One at a time, not as a batch: a closure that opens a modal window runs the rest of this round
  // from that window's loop, still in order.
  while (const auto oldest = queue.TakeBefore(limit)) {
    Run(oldest->closure);
    ++ran;
  }
  return ran;
}

}  // namespace DuiLib
