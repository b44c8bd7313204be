#pragma once

#include <filesystem>
#include <string_view>

namespace os {

/// Writes a file whole or not at all: into a new one beside it, which then takes its place. A link
/// is followed unless it is another user's. Throws std::runtime_error "<path>: <reason>". Any
/// thread.
void ReplaceFile(const std::filesystem::path& file, std::string_view content);

/// Throws as ReplaceFile would, as far as that can be told now; leaves the file as it is.
void RequireReplaceable(const std::filesystem::path& file);

}  // namespace os
