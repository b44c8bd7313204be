#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>

// Culture files: <culture language="en-US"><string id="IDS_...">text</string>...</culture>, UTF-8.
namespace DuiLib {

using CultureTexts = std::unordered_map<std::wstring, std::wstring>;

/// The texts of a culture file by id, blanks at their ends included. The file's own language must
/// be `language`. `name` stands in error messages. Throws std::runtime_error: not the XML above, an
/// id missing or given twice.
CultureTexts ParseCulture(std::string_view xml, std::string_view name, std::string_view language);

/// ParseCulture of <folder>/<language>.xml. Throws std::runtime_error, also when the file cannot be
/// read or when the language's name is not made of ASCII letters, digits and hyphens alone.
CultureTexts ReadCulture(const std::filesystem::path& folder, const std::string& language);

}  // namespace DuiLib
