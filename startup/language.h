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

/// Those that a person can name: "ids" too, which shows the ids of the texts.
std::vector<std::string> NamedLanguages(const std::filesystem::path& resources);

}  // namespace startup
