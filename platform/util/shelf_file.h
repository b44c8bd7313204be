#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "platform/os/export.h"

namespace util {

using Shelf = std::set<std::string, std::less<>>;

/// The plugin keys of a JSON array of texts, at most 1 MiB. Throws std::runtime_error
/// "<name>: <reason>", with the byte where that helps.
Shelf ParseShelf(std::string_view json, const std::string& name);

/// As ParseShelf, for a file. Throws std::runtime_error, too, for what cannot be read.
Shelf ReadShelfFile(const std::filesystem::path& file);

/// The keys of the list in force; none, with a log line, when it cannot be read.
UTIL_API Shelf InstalledShelf();

/// The list in force: config/shelf.json of the folder with the program's configuration where there
/// is one, else of the installation.
std::filesystem::path ShelfFile();

}  // namespace util
