#pragma once

#include <filesystem>

// Where the system puts things.
namespace os {

/// The file of the running program; empty when the system does not tell.
std::filesystem::path ExecutableFile();

/// The folder for the data of this program's user; empty when the user has no home.
std::filesystem::path UserDataFolder();

/// What absolute paths of the system begin with.
std::filesystem::path SystemRoot();

}  // namespace os
