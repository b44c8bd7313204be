#include "manager/host/restart.h"

#include "platform/os/child_process.h"

namespace manager {

// The system may ask the user in between, so it is not waited for.
struct RestartOfComputer::System {
  os::ChildProcess command{{"systemctl", "reboot"}};
};

RestartOfComputer::RestartOfComputer() = default;
RestartOfComputer::~RestartOfComputer() = default;

void RestartOfComputer::Ask() {
  system.reset();
  system = std::make_unique<System>();
}

}  // namespace manager
