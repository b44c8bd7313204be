#pragma once

#include <string>

namespace startup {

/// A text of a program's help in the language in force, in UTF-8, by the end of its string id.
std::string HelpText(const wchar_t* id);

}  // namespace startup
