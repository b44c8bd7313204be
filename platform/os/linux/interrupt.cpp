#include "platform/os/interrupt.h"

#include <poll.h>
#include <sys/eventfd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

#include "platform/os/linux/interrupt_event.h"
#include "platform/os/process_end.h"

namespace os {
namespace {

std::atomic<void (*)()> firstInterrupt = nullptr;
std::atomic<int> secondExitStatus = 1;
std::atomic<int> interruptEvent = -1;

void Interrupted(int) {
  void (*handler)() = firstInterrupt.exchange(nullptr);
  if (handler == nullptr) EndProcess(secondExitStatus);
  const int errorBefore = errno;
  handler();
  eventfd_write(interruptEvent, 1);
  errno = errorBefore;
}

// Makes it at the first call.
void ResetInterruptEvent() {
  static const int made = eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC);
  interruptEvent = made;
  eventfd_t ignored = 0;
  eventfd_read(made, &ignored);
}

}  // namespace

int InterruptEvent() {
  return interruptEvent;
}

void WaitForInterrupt() {
  pollfd wait{InterruptEvent(), POLLIN, 0};
  while (poll(&wait, 1, -1) < 0 && errno == EINTR) {
  }
}

void OnInterrupt(void (*handler)(), int exitStatus) {
  ResetInterruptEvent();
  firstInterrupt = handler;
  secondExitStatus = exitStatus;
  struct sigaction action {};
  action.sa_handler = &Interrupted;
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

}  // namespace os
