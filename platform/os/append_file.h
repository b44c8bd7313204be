#pragma once

#include <filesystem>
#include <string_view>

namespace os {

/// Appends one line (the line feed is added) to a file, created if missing, in a single write, so
/// that lines of several threads and processes do not mix. False when it could not be written
/// whole. Any thread.
bool AppendLine(const std::filesystem::path& file, std::string_view line);

}  // namespace os
