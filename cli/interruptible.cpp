#include "cli/interruptible.h"

#include <atomic>
#include <utility>

#include "cli/commands.h"
#include "platform/os/interrupt.h"

namespace cli {
namespace {

std::atomic<bool> interrupted = false;
std::atomic<const std::function<void()>*> current = nullptr;

void Interrupt() {
  interrupted = true;
  if (const auto* cancel = current.load()) (*cancel)();
}

}  // namespace

Interruptible::Interruptible() {
  interrupted = false;
  os::OnInterrupt(&Interrupt, kCancelled);
}

Interruptible::~Interruptible() {
  current = nullptr;
}

void Interruptible::Cancels(std::function<void()> cancel) {
  current = nullptr;
  cancelled = std::move(cancel);
  current = &cancelled;
  if (interrupted) cancelled();
}

}  // namespace cli
