#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/os/export.h"

namespace DE {

/// Converts to UTF-8.
UTIL_API std::string WcharToChar(const std::wstring& text);

/// Upper-cases a to z, whatever the locale.
UTIL_API std::string UpperCase(const std::string& text);

/// Removes ASCII white space at both ends.
UTIL_API std::string TrimSP(const std::string& text);
UTIL_API std::wstring TrimSP(const std::wstring& text);

/// The pieces between separators; empty ones are kept, an empty text is one empty piece.
UTIL_API std::vector<std::string> split(const std::string& text, char separator);

/// Whether anything of that name exists, a folder or an unreadable file included.
UTIL_API bool FileExists(const std::filesystem::path& file);

}  // namespace DE
