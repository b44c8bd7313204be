#pragma once

#include <string>
#include <string_view>

// Text helpers that know ASCII alone, whatever the locale.
namespace common {

/// Without white space at both ends.
std::string Trimmed(std::string_view text);
std::wstring Trimmed(std::wstring_view text);

/// With a to z in upper case.
std::string UpperCase(std::string_view text);
std::wstring UpperCase(std::wstring_view text);

}  // namespace common
