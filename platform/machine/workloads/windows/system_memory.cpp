#include "platform/machine/workloads/system_memory.h"

#include <windows.h>

namespace machine {

SystemMemory ReadSystemMemory() {
  MEMORYSTATUSEX status{};
  status.dwLength = sizeof status;
  if (GlobalMemoryStatusEx(&status) == 0) return {};
  return {status.ullTotalPhys / 1024, status.ullAvailPhys / 1024};
}

}  // namespace machine
