#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace companion {

/// The path as text, in UTF-8 with the separators of the system. One that is no text keeps its
/// printable ASCII; each other unit of it becomes "%" and its hexadecimal digits.
std::string ShownPath(std::filesystem::path path);

/// The text in printable ASCII, every other byte of it as "%" and its hexadecimal digits.
std::string Escaped(std::string_view text);

}  // namespace companion
