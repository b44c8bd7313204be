#pragma once

#include <cstdint>

#include "platform/os/export.h"
#include "platform/plugins_manager/object.h"

// The host's plugin manager, "PluginsManager.dll": plugins register what they can create, hosts
// load plugins and create objects by class id. Reached by export name through the loader. Any
// thread; the manager holds no lock while it calls the loader or a plugin.

namespace x3 {

/// A plugin's factory. Class id may be empty: the first class that answers the interface.
using CreateFunction = bool(ORV_STDCALL*)(const char* classId, InterfaceId interfaceId,
                                          IObject** out);

/// How often plugins with this class id have registered and unregistered in this process.
struct RegistrationCounts {
  std::uint32_t registered;
  std::uint32_t unregistered;
};

using RegisterFunction = bool(ORV_STDCALL*)(CreateFunction create, void* module,
                                            const char* const* classIds);
using UnregisterFunction = bool(ORV_STDCALL*)(CreateFunction create);
using LoadPluginFunction = bool(ORV_STDCALL*)(const char* path);
using CountsFunction = RegistrationCounts(ORV_STDCALL*)(const char* classId);

}  // namespace x3

extern "C" {

/// Notes a plugin's factory, module and class ids (copied; a null ends the list). Called by the
/// plugin's attach. False when a factory is registered already.
ORV_EXPORT bool ORV_STDCALL x3RegisterPlugin(x3::CreateFunction create, void* module,
                                             const char* const* classIds);

/// Forgets a factory. Called by the plugin's detach. False when it was not registered.
ORV_EXPORT bool ORV_STDCALL x3UnregisterPlugin(x3::CreateFunction create);

/// Loads the plugin file at an absolute path (UTF-8), or a name beside the platform libraries. Each
/// success is to be balanced by an unload of the same path. False when it cannot be loaded.
ORV_EXPORT bool ORV_STDCALL x3LoadPlugin(const char* path);

/// Gives back one load. The plugin leaves the process when its work has ended, too. False when the
/// path is not loaded.
ORV_EXPORT bool ORV_STDCALL x3UnloadPlugin(const char* path);

/// Creates an object by the factory registered for the class id; see x3::CreateFunction. The
/// caller keeps the plugin loaded while it calls.
ORV_EXPORT bool ORV_STDCALL x3CreateRegistered(const char* classId, x3::InterfaceId interfaceId,
                                               x3::IObject** out);

ORV_EXPORT x3::RegistrationCounts ORV_STDCALL x3CountRegistrations(const char* classId);

}  // extern "C"
