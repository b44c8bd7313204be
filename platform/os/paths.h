#pragma once

#include <filesystem>

// Where things lie. The setters are for a program's start, before other threads run.
namespace os {

/// The folder of the running program.
std::filesystem::path ExecutableFolder();

/// The installation folder whose config/ the configuration readers use: the folder of the running
/// program for one reader, that of the utility library for the other, or the one folder set here.
/// Empty when the system does not tell, or when its path has 260 characters or more.
std::filesystem::path ProgramConfigurationRoot();
std::filesystem::path LibraryConfigurationRoot();
void SetConfigurationRoot(std::filesystem::path folder);

/// The folder of the utility library, where res/ and config/ of the installation lie.
std::filesystem::path InstallationFolder();

/// The folder for store.db, events.jsonl and log/, made if missing; by default the user's own data
/// folder. Throws std::runtime_error where the user has none, and for a folder that MakeOwnFolder
/// refuses.
std::filesystem::path DataFolder();
void SetDataFolder(std::filesystem::path folder);

/// A system path (/proc/..., /sys/...) below the system root: "/", or "c:\" on Windows, unless set.
std::filesystem::path SystemPath(const std::filesystem::path& absolute);
void SetSystemRoot(std::filesystem::path folder);
bool IsSystemRootSet();

/// Whether the machine in force is one that a file describes: of this system's own files it has
/// none then, unless a system root was set.
void SetMachineDescribed(bool isDescribed);

/// The text file in which the maker leaves the product version; empty for a described machine that
/// has none.
std::filesystem::path OemVersionFile();

}  // namespace os
