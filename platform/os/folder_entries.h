#pragma once

#include <filesystem>
#include <vector>

namespace os {

/// What lies in a folder, with the folder's own path before each name, in no order; nothing when it
/// cannot be read. However long the path is. Any thread.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder);

}  // namespace os
