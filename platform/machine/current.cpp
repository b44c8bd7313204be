#include "platform/machine/current.h"

#include <atomic>

#include "platform/machine/live/disk.h"
#include "platform/machine/live/live_machine.h"
#include "platform/os/paths.h"

namespace machine {
namespace {

std::atomic<Machine*>& Chosen() {
  static std::atomic<Machine*>& chosen = *new std::atomic<Machine*>(nullptr);
  return chosen;
}

}  // namespace

Machine& Current() {
  if (Machine* chosen = Chosen().load()) return *chosen;
  static Machine& live = *new LiveMachine(LiveMachine::Place::ChildProcess);
  return live;
}

bool IsLive() {
  return Chosen().load() == nullptr;
}

void SetCurrent(std::unique_ptr<Machine> machine) {
  os::SetMachineDescribed(machine != nullptr);
  delete Chosen().exchange(machine.release());
}

void SetExternalDisksCounted(bool counted) {
  CountExternalDisks(counted);
}

}  // namespace machine
