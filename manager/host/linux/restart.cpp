#include "manager/host/restart.h"

#include <chrono>

#include "platform/os/child_process.h"

namespace manager {

// It may have to ask the user, so nobody waits for its end before the manager's own.
struct RestartOfComputer::System {
  ~System() { command.EndsWithin(std::chrono::seconds(3)); }

  os::ChildProcess command{{"systemctl", "reboot"}};
};

RestartOfComputer::RestartOfComputer() = default;
RestartOfComputer::~RestartOfComputer() = default;

void RestartOfComputer::Ask() {
  system.reset();
  system = std::make_unique<System>();
}

}  // namespace manager
