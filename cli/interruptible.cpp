#include "cli/interruptible.h"

#include <atomic>
#include <utility>

#include "cli/commands.h"
#include "platform/os/interrupt.h"

namespace cli {
namespace {

std::atomic<const std::function<void()>*> current = nullptr;

void Interrupt() {
  if (const auto* cancel = current.load()) (*cancel)();
}

}  // namespace

Interruptible::Interruptible(std::function<void()> cancelled) : cancel(std::move(cancelled)) {
  current = &cancel;
  os::OnInterrupt(&Interrupt, kCancelled);
}

Interruptible::~Interruptible() {
  current = nullptr;
}

}  // namespace cli
