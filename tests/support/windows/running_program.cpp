#include "tests/support/running_program.h"

#include <stdexcept>
#include <system_error>

#include "platform/os/windows/end_request.h"
#include "platform/os/windows/start_process.h"

namespace {

constexpr UINT kKilled = 0xDEAD;

os::Handle OpenForErrors(const std::filesystem::path& file) {
  SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
  return os::Handle(CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

struct RunningProgram::System {
  HANDLE Process() const { return started.process.Get(); }

  os::StartedProcess started;
  os::Handle output;
};

RunningProgram::RunningProgram(const std::vector<std::string>& words,
                               const std::filesystem::path& errors)
    : system(std::make_unique<System>()) {
  HANDLE ends[2];
  if (CreatePipe(&ends[0], &ends[1], nullptr, 0) == 0) throw std::runtime_error("no pipe");
  system->output = os::Handle(ends[0]);
  const os::Handle writeEnd(ends[1]);
  SetHandleInformation(writeEnd.Get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  const os::Handle errorFile = OpenForErrors(errors);
  // Rarely, a start fails inside Wine itself, which then says "wine client error".
  for (int starts = 0; starts < 2 && !system->started.process; ++starts)
    system->started = os::StartProcess(words, writeEnd.Get(), errorFile.Get());
  if (!system->started.process)
    throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                            "cannot start " + words[0]);
}

RunningProgram::~RunningProgram() {
  if (HasEnded()) return;
  Kill();
  WaitForSingleObject(system->Process(), INFINITE);
}

bool RunningProgram::Read(std::string& text) {
  char bytes[16384];
  DWORD length = 0;
  if (ReadFile(system->output.Get(), bytes, sizeof bytes, &length, nullptr) == 0) return false;
  text.append(bytes, length);
  return true;
}

void RunningProgram::Interrupt() {
  os::RequestEnd(GetProcessId(system->Process()));
}

void RunningProgram::Kill() {
  TerminateProcess(system->Process(), kKilled);
}

bool RunningProgram::HasEnded() {
  return WaitForSingleObject(system->Process(), 0) == WAIT_OBJECT_0;
}

std::optional<int> RunningProgram::Wait() {
  WaitForSingleObject(system->Process(), INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(system->Process(), &status);
  if (status == kKilled) return std::nullopt;
  return static_cast<int>(status);
}
