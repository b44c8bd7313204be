#include "platform/os/process_end.h"

#include "platform/os/windows/handle.h"

namespace os {
namespace {

using Function = BOOLEAN(WINAPI*)();

// Looked up when the module is loaded: at the end of the process the runtime's lock for first calls
// may be one that never comes free.
const auto shutdownInProgress = reinterpret_cast<Function>(reinterpret_cast<void*>(
    GetProcAddress(GetModuleHandleA("ntdll.dll"), "RtlDllShutdownInProgress")));

}  // namespace

// Anything gentler runs the detach of every library, after the other threads are gone.
void EndProcess(int exitStatus) {
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitStatus));
  for (;;) Sleep(INFINITE);
}

bool IsLastThreadOfEndingProcess() {
  return shutdownInProgress != nullptr && shutdownInProgress() != FALSE;
}

}  // namespace os
