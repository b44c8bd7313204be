#pragma once

#include <string>
#include <vector>

namespace startup {

/// A text of a program's help in the language in force, in UTF-8, by the end of its string id.
std::string HelpText(const wchar_t* id);

/// The same with its placeholders filled.
std::string HelpText(const wchar_t* id, const std::vector<std::string>& arguments);

}  // namespace startup
