#include "platform/machine/workloads/memory_error.h"

#include <csetjmp>
#include <csignal>
#include <cstddef>
#include <mutex>

namespace machine {
namespace {

/// Where a thread that works goes on after an error.
struct Rescue {
  sigjmp_buf place;
  const void* address = nullptr;
};

thread_local Rescue* rescue = nullptr;

struct sigaction& FormerAction() {
  static struct sigaction former {};
  return former;
}

// The kernel sends this to the thread that touched the memory.
void OnError(int, siginfo_t* info, void*) {
  if (rescue == nullptr) {
    // Somebody else's fault: it happens again at once, and takes the way it would have taken.
    sigaction(SIGBUS, &FormerAction(), nullptr);
    return;
  }
  rescue->address = info->si_addr;
  siglongjmp(rescue->place, 1);
}

/// Puts the handler in force while anybody works.
class Handler {
 public:
  Handler() {
    const std::lock_guard lock(Mutex());
    if (Users()++ > 0) return;
    struct sigaction action {};
    action.sa_sigaction = OnError;
    action.sa_flags = SA_SIGINFO | SA_NODEFER;
    sigaction(SIGBUS, &action, &FormerAction());
  }
  ~Handler() {
    const std::lock_guard lock(Mutex());
    if (--Users() == 0) sigaction(SIGBUS, &FormerAction(), nullptr);
  }
  Handler(const Handler&) = delete;
  Handler& operator=(const Handler&) = delete;

 private:
  static std::mutex& Mutex() {
    static std::mutex& mutex = *new std::mutex;
    return mutex;
  }
  static int& Users() {
    static int users = 0;
    return users;
  }
};

}  // namespace

std::optional<std::uintptr_t> CatchMemoryError(const std::function<void()>& work) {
  const Handler handler;
  Rescue mine;
  if (sigsetjmp(mine.place, 1) != 0) {
    rescue = nullptr;
    return reinterpret_cast<std::uintptr_t>(mine.address);
  }
  rescue = &mine;
  work();
  rescue = nullptr;
  return std::nullopt;
}

}  // namespace machine
