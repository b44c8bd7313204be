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

/// A text for the end of the program, of and in UTF-8 as it stands: whoever prints it makes it
/// printable.
std::string Message(const wchar_t* id, const std::vector<std::string>& arguments = {});

}  // namespace cli
