#pragma once

#include <array>
#include <string>

namespace orv::sysdiagnose {

/// The text of the maker's version file; empty when it is missing or cannot be read.
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
