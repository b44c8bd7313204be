#pragma once

#include <string>
#include <string_view>

// Conversions between the three forms of text: UTF-8, the wide form of this target, and UTF-16
// units. Only this file and its source know how wide wchar_t is.
namespace common {

/// Malformed bytes become U+FFFD, one per byte.
std::wstring Utf8ToWide(std::string_view text);

/// Unpaired surrogates become U+FFFD.
std::string WideToUtf8(std::wstring_view text);

/// One unit for each code point; unpaired surrogates are kept.
std::u32string WideToUtf32(std::wstring_view text);

/// Unpaired surrogates are kept, so that a body survives a round trip through the wide form.
std::u16string WideToUtf16(std::wstring_view text);
std::wstring Utf16ToWide(std::u16string_view text);

}  // namespace common
