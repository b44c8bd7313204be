#include "platform/os/interrupt.h"

#include <atomic>
#include <csignal>

#include "platform/os/process_end.h"

namespace os {
namespace {

std::atomic<void (*)()> firstInterrupt = nullptr;
std::atomic<int> secondExitStatus = 1;

void Interrupted(int) {
  if (void (*handler)() = firstInterrupt.exchange(nullptr); handler != nullptr)
    handler();
  else
    EndProcess(secondExitStatus);
}

}  // namespace

void OnInterrupt(void (*handler)(), int exitStatus) {
  firstInterrupt = handler;
  secondExitStatus = exitStatus;
  struct sigaction action {};
  action.sa_handler = &Interrupted;
  action.sa_flags = SA_RESTART;
  sigaction(SIGINT, &action, nullptr);
  sigaction(SIGTERM, &action, nullptr);
}

}  // namespace os
