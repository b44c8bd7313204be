#pragma once

#include "platform/os/export.h"
#include "platform/os/module.h"
#include "platform/plugins_manager/object.h"

// The entry points that a plugin module exports, and nothing else.
extern "C" {

/// Always true; nothing else happens.
ORV_EXPORT bool ORV_STDCALL x3InitializePlugin();
ORV_EXPORT void ORV_STDCALL x3UninitializePlugin();

/// Counts the call; the first one registers the module with the plugin manager, which may be null
/// and is then found or loaded. Always true. Not to be called concurrently with x3FreePlugin.
ORV_EXPORT bool ORV_STDCALL x3InitPlugin(os::ModuleHandle own, os::ModuleHandle manager);

/// True for the call that balances the first x3InitPlugin; that one unregisters.
ORV_EXPORT bool ORV_STDCALL x3FreePlugin();

/// Creates an object of a class id, or, for an empty one, of the first class that answers the
/// interface. The caller owns one count. False, with a null object, when none was made. Any thread.
ORV_EXPORT bool ORV_STDCALL x3InternalCreate(const char* classId, x3::InterfaceId interfaceId,
                                             x3::IObject** out);
ORV_EXPORT bool ORV_STDCALL x3CreateObject(const char* classId, x3::InterfaceId interfaceId,
                                           x3::IObject** out);

}  // extern "C"
