#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace common {

/// The path in UTF-8 with the separators of the system, for messages and for libraries that take
/// paths so.
inline std::string PathText(std::filesystem::path path) {
  const std::u8string text = path.make_preferred().u8string();
  return {text.begin(), text.end()};
}

/// The path that UTF-8 text names.
inline std::filesystem::path TextPath(std::string_view text) {
  return std::u8string(text.begin(), text.end());
}

}  // namespace common
