#include "platform/duilib/window/window_library.h"

#include "platform/os/module.h"

namespace DuiLib {

void* WindowLibraryProcedure(const char* name) {
  static const os::ModuleHandle library = os::LoadModule("DuiWindow.dll");
  return os::FindProcedure(library, name);
}

}  // namespace DuiLib
