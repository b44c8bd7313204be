#include <windows.h>

#include "sysdiagnose/plugin/frame/entry_points.h"

// Linked into the shared library alone: the loader's attach and detach. A detach at the end of the
// process comes here too.
BOOL WINAPI DllMain(HINSTANCE own, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) x3InitPlugin(own, nullptr);
  if (reason == DLL_PROCESS_DETACH) x3FreePlugin();
  return TRUE;
}
