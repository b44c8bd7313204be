#pragma once

#include <filesystem>

namespace os {

/// Opens the folder of a file in the user's file manager, the file selected where that can be.
/// False when nothing was opened. May take a second; any thread.
bool RevealInFolder(const std::filesystem::path& file);

}  // namespace os
