#pragma once

#include <array>
#include <filesystem>
#include <string>

namespace orv::sysdiagnose {

/// The maker's version file of the machine in force. Empty for a described machine unless a system
/// root was set for it: this system is another machine's.
std::filesystem::path OemVersionFile();

/// The text of that file; empty when it is missing or cannot be read.
std::wstring ReadOemVersion();

/// The version text in the registry, which outlives the file. A failed write is not reported.
void KeepProductVersion(const std::wstring& text);
std::wstring KeptProductVersion();

/// Root, key and name of that registry value.
std::array<std::string, 3> ProductVersionPlace();

/// The version without control characters and outer blanks, up to its first "_". A text of 64
/// characters or more is refused and gives an empty one.
std::string CleanProductVersion(std::string text);

}  // namespace orv::sysdiagnose
