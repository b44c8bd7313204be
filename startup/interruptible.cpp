#include "startup/interruptible.h"

#include <atomic>
#include <thread>
#include <utility>

#include "platform/os/interrupt.h"
#include "platform/os/process_end.h"

namespace startup {
namespace {

std::atomic<bool> interrupted = false;
std::atomic<const std::function<void()>*> current = nullptr;
bool expected = false;       // before there is an Interruptible
std::atomic<int> calls = 0;  // under way, which may be on a thread of the system

void Interrupt() {
  interrupted = true;
  ++calls;
  if (const auto* cancel = current.load()) (*cancel)();
  --calls;
}

void ForgetCurrent() {
  current = nullptr;
  while (calls != 0) std::this_thread::yield();
}

}  // namespace

void ExpectInterrupts(int exitStatus) {
  interrupted = false;
  os::OnInterrupt(&Interrupt, exitStatus);
  expected = true;
}

void EndAtInterrupts(int exitStatus) {
  os::OnInterrupt(nullptr, exitStatus);
  expected = false;
  if (interrupted) os::EndProcess(exitStatus);
}

Interruptible::Interruptible(int exitStatus) {
  if (!std::exchange(expected, false)) ExpectInterrupts(exitStatus);
  expected = false;
}

bool Interruptible::HasCome() {
  return interrupted;
}

Interruptible::~Interruptible() {
  ForgetCurrent();
}

void Interruptible::Cancels(std::function<void()> cancel) {
  ForgetCurrent();
  cancelled = std::move(cancel);
  current = &cancelled;
  if (interrupted) cancelled();
}

}  // namespace startup
