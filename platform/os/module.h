#pragma once

#include <filesystem>
#include <string>

// Loaded modules (shared libraries and the program itself).
//
// Libraries are named as on Windows, by file name without a folder; on Linux "Name.dll" stands for
// "libName.so". All functions may be called from any thread, and from a library's own attach and
// detach.
namespace os {

using ModuleHandle = void*;

/// The handle of an already loaded library, or null. Does not keep it loaded.
ModuleHandle FindLoadedModule(const char* name);

/// The file of a library that lies beside the platform libraries; an absolute path stands for
/// itself.
std::filesystem::path LibraryFile(const std::filesystem::path& name);

/// Loads a library that lies beside the platform libraries, or the one at an absolute path; null
/// when it cannot be loaded. Each success is to be balanced by ReleaseModule.
ModuleHandle LoadModule(const std::filesystem::path& name);

/// Gives back one LoadModule. Null is ignored.
void ReleaseModule(ModuleHandle module);

/// The exported procedure of that name, or null. A null module has no procedures.
void* FindProcedure(ModuleHandle module, const char* name);

/// The handle of the module that holds this address. Does not keep it loaded.
ModuleHandle ModuleOfAddress(const void* address);

/// The file of the module that holds this address; empty for the running program.
std::string ModuleFileOfAddress(const void* address);

}  // namespace os
