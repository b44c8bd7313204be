#include "manager/host/restart.h"

#include <windows.h>

#include <stdexcept>
#include <string>

#include "platform/os/windows/handle.h"

namespace manager {
namespace {

[[noreturn]] void Fail(const char* what) {
  throw std::runtime_error(std::string(what) + " failed with error " +
                           std::to_string(GetLastError()));
}

// A process has the right, but must put it in force.
void TakeRight() {
  HANDLE opened = nullptr;
  if (OpenProcessToken(GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &opened) == 0)
    Fail("OpenProcessToken");
  const os::Handle token(opened);
  TOKEN_PRIVILEGES rights{};
  rights.PrivilegeCount = 1;
  rights.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (LookupPrivilegeValueW(nullptr, L"SeShutdownPrivilege", &rights.Privileges[0].Luid) == 0)
    Fail("LookupPrivilegeValue");
  if (AdjustTokenPrivileges(opened, FALSE, &rights, 0, nullptr, nullptr) == 0 ||
      GetLastError() != ERROR_SUCCESS)
    Fail("AdjustTokenPrivileges");
}

}  // namespace

struct RestartOfComputer::System {};

RestartOfComputer::RestartOfComputer() = default;
RestartOfComputer::~RestartOfComputer() = default;

void RestartOfComputer::Ask() {
  TakeRight();
  constexpr DWORD kReason =
      SHTDN_REASON_MAJOR_HARDWARE | SHTDN_REASON_MINOR_MAINTENANCE | SHTDN_REASON_FLAG_PLANNED;
  if (ExitWindowsEx(EWX_REBOOT, kReason) == 0) Fail("ExitWindowsEx");
}

}  // namespace manager
