#include "platform/os/child_process.h"

#include <stdexcept>
#include <system_error>

#include "platform/os/windows/end_request.h"
#include "platform/os/windows/start_process.h"

namespace os {
namespace {

constexpr std::chrono::seconds kPatience(3);

}  // namespace

struct ChildProcess::System {
  StartedProcess started;
};

ChildProcess::ChildProcess(const std::vector<std::string>& arguments)
    : system(std::make_unique<System>()) {
  system->started = StartProcess(arguments, nullptr, nullptr);
  if (system->started.process) return;
  throw std::runtime_error(arguments[0] + " cannot be started: " +
                           std::system_category().message(static_cast<int>(GetLastError())));
}

ChildProcess::~ChildProcess() {
  AskToEnd();
  if (!EndsWithin(kPatience)) Kill();
}

void ChildProcess::AskToEnd() {
  HANDLE process = system->started.process.Get();
  if (process != nullptr && !RequestEnd(GetProcessId(process))) TerminateProcess(process, 1);
}

void ChildProcess::Kill() {
  HANDLE process = system->started.process.Get();
  if (process == nullptr) return;
  TerminateProcess(process, 1);
  WaitForSingleObject(process, INFINITE);
  system->started.process.Close();
}

bool ChildProcess::EndsWithin(std::chrono::milliseconds limit) {
  HANDLE process = system->started.process.Get();
  if (process == nullptr) return true;
  if (WaitForSingleObject(process, static_cast<DWORD>(limit.count())) != WAIT_OBJECT_0)
    return false;
  system->started.process.Close();
  return true;
}

}  // namespace os
