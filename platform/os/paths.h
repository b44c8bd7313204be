#pragma once

#include <filesystem>

#include "platform/os/export.h"

// Where things lie. The setters are for a program's start, before other threads run.
namespace os {

/// The folder of the running program.
UTIL_API std::filesystem::path ExecutableFolder();

/// The installation folder whose config/ the configuration readers use: the folder of the running
/// program for one reader, that of the utility library for the other, or the one folder set here.
/// Empty when the system does not tell, or when its path has 260 characters or more.
UTIL_API std::filesystem::path ProgramConfigurationRoot();
UTIL_API std::filesystem::path LibraryConfigurationRoot();
UTIL_API void SetConfigurationRoot(std::filesystem::path folder);

/// The folder of the utility library, where res/ and config/ of the installation lie.
UTIL_API std::filesystem::path InstallationFolder();

/// The folder for store.db, events.jsonl and log/, made if missing; by default the user's own data
/// folder. Throws std::runtime_error where the user has none, and for a folder that MakeOwnFolder
/// refuses.
UTIL_API std::filesystem::path DataFolder();
UTIL_API void SetDataFolder(std::filesystem::path folder);

/// A system path (/proc/..., /sys/...) below the system root: "/", or "c:\" on Windows, unless set.
UTIL_API std::filesystem::path SystemPath(const std::filesystem::path& absolute);
UTIL_API void SetSystemRoot(std::filesystem::path folder);
UTIL_API bool IsSystemRootSet();

/// The text file in which the maker leaves the product version.
UTIL_API std::filesystem::path OemVersionFile();

}  // namespace os
