#include "platform/machine/live/linux/forked_call.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <new>

namespace machine {
namespace {

constexpr int kEndRequests[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE};

/// Lets go of everything that this process has open, such as a pipe whose reader waits for its end.
void CloseAll() {
  const int nothing = open("/dev/null", O_RDWR);
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(nothing, standard);
  close_range(STDERR_FILENO + 1, ~0U, 0);
}

[[noreturn]] void RunChild(const std::function<int()>& body, AfterLimit afterLimit) {
  for (const int request : kEndRequests)
    signal(request, afterLimit == AfterLimit::LetFinish ? SIG_IGN : SIG_DFL);
  setsid();
  CloseAll();
  _exit(body());
}

}  // namespace

std::optional<int> RunForked(const std::function<int()>& body, AfterLimit afterLimit,
                             std::chrono::milliseconds limit) {
  const auto deadline = std::chrono::steady_clock::now() + limit;
  const pid_t child = fork();
  if (child == 0) RunChild(body, afterLimit);
  if (child < 0) return std::nullopt;
  for (;;) {
    int status = 0;
    const pid_t ended = waitpid(child, &status, WNOHANG);
    if (ended == child)
      return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
    if (ended < 0 && errno != EINTR) return std::nullopt;
    if (std::chrono::steady_clock::now() >= deadline) break;
    poll(nullptr, 0, 1);
  }
  if (afterLimit == AfterLimit::Kill) kill(child, SIGKILL);
  return std::nullopt;
}

SharedMemory::SharedMemory(std::size_t bytes)
    : size(bytes),
      memory(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
  if (memory == MAP_FAILED) throw std::bad_alloc();
}

SharedMemory::~SharedMemory() {
  munmap(memory, size);
}

}  // namespace machine
