#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace common {

/// The whole content of a file, cut one byte behind `limit` so that the caller can tell. Throws
/// std::runtime_error "cannot open file <path>" for what cannot be read, a folder included.
std::string ReadFile(const std::filesystem::path& file, std::size_t limit);

/// A path below a folder, written with back slashes as separators.
std::filesystem::path BackslashPath(std::string_view path);

}  // namespace common
