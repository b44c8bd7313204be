#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "platform/os/export.h"

// Files that grow line by line and do not grow for ever. Lines of several threads and processes do
// not mix. Only plain files are written to: never through a link, nor into a pipe or a device. Any
// thread.
namespace os {

/// Bytes that such a file holds at most, unless its only line is longer.
constexpr std::uintmax_t kFullFile = 8 * 1024 * 1024;

/// Where the full file goes: "name.1.ext" beside "name.ext". There is one; the next takes its
/// place.
UTIL_API std::filesystem::path EarlierFile(const std::filesystem::path& file);

/// Appends one line (the line feed is added) to a file, created for the user alone if missing.
/// Throws std::runtime_error "<path>: <reason>" when that cannot be done; the file holds nothing of
/// the line then.
void AppendLine(const std::filesystem::path& file, std::string_view line);

/// Makes the file if it is missing. Throws as AppendLine, for a program that wants to know at its
/// start.
void PrepareAppending(const std::filesystem::path& file);

}  // namespace os
