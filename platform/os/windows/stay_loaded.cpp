#include <windows.h>

// Linked into each platform library: its threads, queues and the code behind its handed-out
// pointers live as long as the process, so it stays as long.
BOOL WINAPI DllMain(HINSTANCE own, DWORD reason, void*) {
  HMODULE module = nullptr;
  if (reason == DLL_PROCESS_ATTACH)
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<const wchar_t*>(own), &module);
  return TRUE;
}
