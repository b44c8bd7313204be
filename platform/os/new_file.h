#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace os {

/// Makes a file that must not exist yet, a link included. Why it could not be written whole, if so;
/// a part of it may then stand there. Any thread.
std::error_code WriteNewFile(const std::filesystem::path& file, std::string_view content);

}  // namespace os
