#pragma once

#include <filesystem>
#include <string>

namespace companion {

/// The path as text, in UTF-8 with the separators of the system. One that is no text keeps its
/// printable ASCII; each other unit of it becomes "%" and its hexadecimal digits.
std::string ShownPath(std::filesystem::path path);

}  // namespace companion
