#include "platform/os/process_end.h"

#include "platform/os/windows/handle.h"

namespace os {

// Anything gentler runs the detach of every library, after the other threads are gone.
void EndProcess(int exitStatus) {
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitStatus));
  for (;;) Sleep(INFINITE);
}

bool IsLastThreadOfEndingProcess() {
  using Function = BOOLEAN(WINAPI*)();
  static const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("ntdll.dll"), "RtlDllShutdownInProgress")));
  return function != nullptr && function() != FALSE;
}

}  // namespace os
