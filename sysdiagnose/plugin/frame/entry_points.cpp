#include "sysdiagnose/plugin/frame/entry_points.h"

#include "sysdiagnose/plugin/frame/module_frame.h"

namespace {
constinit x3::ModuleFrame frame(&x3::ClassMapList, &x3InternalCreate);
}  // namespace

bool ORV_STDCALL x3InitializePlugin() {
  return true;
}

void ORV_STDCALL x3UninitializePlugin() {}

bool ORV_STDCALL x3InitPlugin(os::ModuleHandle own, os::ModuleHandle manager) {
  return frame.Init(own, manager);
}

bool ORV_STDCALL x3FreePlugin() {
  return frame.Free();
}

bool ORV_STDCALL x3InternalCreate(const char* classId, x3::InterfaceId interfaceId,
                                  x3::IObject** out) {
  return frame.Create(classId, interfaceId, out);
}

bool ORV_STDCALL x3CreateObject(const char* classId, x3::InterfaceId interfaceId,
                                x3::IObject** out) {
  return x3InternalCreate(classId, interfaceId, out);
}
