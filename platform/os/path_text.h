#pragma once

#include <filesystem>
#include <string>

namespace os {

/// The path in UTF-8, for messages and for libraries that take paths so.
inline std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace os
