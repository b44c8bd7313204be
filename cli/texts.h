#pragma once

#include <string>
#include <vector>

namespace cli {

/// A text of the terminal program's own in the language in force, by the end of its string id.
std::wstring Text(const wchar_t* id);

/// The same with its placeholders filled.
std::wstring Text(const wchar_t* id, const std::vector<std::wstring>& arguments);

/// As Text, in UTF-8 and printable.
std::string Line(const wchar_t* id);
std::string Line(const wchar_t* id, const std::vector<std::wstring>& arguments);

}  // namespace cli
