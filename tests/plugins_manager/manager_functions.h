#pragma once

#include "platform/os/module.h"
#include "platform/plugins_manager/plugins_manager.h"

/// The plugin manager as a host reaches it: by name, through the loader. Null members when it is
/// not loaded.
class ManagerFunctions {
 public:
  explicit ManagerFunctions(os::ModuleHandle manager)
      : load(Find<x3::LoadPluginFunction>(manager, "x3LoadPlugin")),
        unload(Find<x3::LoadPluginFunction>(manager, "x3UnloadPlugin")),
        create(Find<x3::CreateFunction>(manager, "x3CreateRegistered")),
        counts(Find<x3::CountsFunction>(manager, "x3CountRegistrations")) {}

  /// An object by class id, or null. The caller releases it.
  template <typename Interface>
  Interface* Create(const char* classId) const {
    x3::IObject* object = nullptr;
    create(classId, x3::IdOf<Interface>(), &object);
    return static_cast<Interface*>(object);
  }

  x3::LoadPluginFunction load;
  x3::LoadPluginFunction unload;
  x3::CreateFunction create;
  x3::CountsFunction counts;

 private:
  template <typename Function>
  static Function Find(os::ModuleHandle manager, const char* name) {
    return reinterpret_cast<Function>(os::FindProcedure(manager, name));
  }
};
