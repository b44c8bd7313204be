#include "tests/support/process_counts.h"

#include <windows.h>

// After the header that its types come from.
#include <tlhelp32.h>

#include "platform/os/windows/handle.h"

namespace {

std::ptrdiff_t Threads() {
  const os::Handle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
  THREADENTRY32 entry{};
  entry.dwSize = sizeof entry;
  std::ptrdiff_t count = 0;
  for (BOOL more = Thread32First(snapshot.Get(), &entry); more != 0;
       more = Thread32Next(snapshot.Get(), &entry))
    count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
  return count;
}

std::ptrdiff_t Handles() {
  DWORD count = 0;
  GetProcessHandleCount(GetCurrentProcess(), &count);
  return count;
}

}  // namespace

ProcessCounts ProcessCounts::Now() {
  return {Threads(), Handles()};
}
