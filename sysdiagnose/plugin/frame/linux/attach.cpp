#include "sysdiagnose/plugin/frame/entry_points.h"

// Linked into the shared library alone: the loader's attach and detach.
namespace {

__attribute__((constructor)) void Attach() {
  x3InitPlugin(os::ModuleOfAddress(reinterpret_cast<const void*>(&Attach)), nullptr);
}

__attribute__((destructor)) void Detach() {
  x3FreePlugin();
}

}  // namespace
