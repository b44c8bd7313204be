#pragma once

#include <array>
#include <cstdint>

#include "platform/os/module.h"
#include "platform/plugins_manager/plugins_manager.h"
#include "sysdiagnose/plugin/frame/class_entry.h"

namespace x3 {

/// Objects of singleton classes, filled from the end: firstIndex is the lowest slot in use.
struct SingletonStore {
  std::int32_t capacity = 0;
  std::int32_t firstIndex = 0;
  IObject** objects = nullptr;

  void Prepare(std::int32_t count);
  void Destroy();
};

/// What stands behind a module's entry points: counts initialisations, registers the class map with
/// the plugin manager and creates objects.
///
/// Init and Free are called by the loader's attach and detach, which the platform serialises; they
/// take no lock. Trivially destructible: at process end the detach may come after the destructors.
class ModuleFrame {
 public:
  /// Class ids that are offered to the manager; checked before each table.
  static constexpr std::size_t kMaxClassIds = 64;

  /// `moduleClasses` gives the class map, `factory` is what the manager calls to create objects.
  constexpr ModuleFrame(ClassMap (*moduleClasses)(), CreateFunction factory)
      : classes(moduleClasses), create(factory) {}

  /// `own` is the module's handle, `manager` the plugin manager's or null. Always true.
  bool Init(os::ModuleHandle own, os::ModuleHandle manager);

  /// True for the call that balances the first Init.
  bool Free();

  /// Sets `out` to a new object, or null; true when one was made. An empty class id stands for the
  /// first class that answers the interface.
  bool Create(const char* classId, InterfaceId interfaceId, IObject** out) const;

  SingletonStore singletons;

 private:
  void FindManager(os::ModuleHandle given);
  void Register();
  const ClassEntry* FindClass(const char* classId) const;
  const ClassEntry* FindInterface(InterfaceId id) const;

  ClassMap (*classes)();
  CreateFunction create;
  std::uint32_t initCount = 0;
  os::ModuleHandle ownModule = nullptr;
  os::ModuleHandle managerModule = nullptr;
  bool managerLoadedHere = false;
};

}  // namespace x3
