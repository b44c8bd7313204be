#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace startup {

/// The language of the texts that the user's environment asks for, of those that have a file in the
/// resource folder's culture/: the user's own, else one of the same language elsewhere, else en-US.
std::string UserLanguage(const std::filesystem::path& resources);

/// All of those, in alphabetical order.
std::vector<std::string> Languages(const std::filesystem::path& resources);

/// The language that was named, if it is one of those or "ids". Throws UsageError naming those that
/// are.
std::string NamedLanguage(const std::string& name, const std::filesystem::path& resources);

}  // namespace startup
