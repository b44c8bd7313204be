#include "common/text.h"

#include <cstdint>

namespace common {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr bool kWideIsUtf16 = sizeof(wchar_t) == 2;

bool IsHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}
bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

char32_t Join(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

// Appends a code point to UTF-16 units of either width.
template <typename Unit>
void AppendUtf16(std::basic_string<Unit>& text, char32_t c) {
  if (c < 0x10000) {
    text.push_back(static_cast<Unit>(c));
    return;
  }
  text.push_back(static_cast<Unit>(0xD800 + ((c - 0x10000) >> 10)));
  text.push_back(static_cast<Unit>(0xDC00 + ((c - 0x10000) & 0x3FF)));
}

void AppendWide(std::wstring& text, char32_t c) {
  if constexpr (kWideIsUtf16)
    AppendUtf16(text, c);
  else
    text.push_back(static_cast<wchar_t>(c));
}

void AppendUtf8(std::string& text, char32_t c) {
  const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

// The length of the sequence that a lead byte starts, 0 for a byte that starts none, and the least
// code point that needs that length.
struct Lead {
  int length;
  char32_t least;
  char32_t bits;
};

Lead ReadLead(std::uint8_t byte) {
  if (byte < 0x80) return {1, 0, byte};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, 0x80, static_cast<char32_t>(byte & 0x1F)};
  if ((byte & 0xF0) == 0xE0) return {3, 0x800, static_cast<char32_t>(byte & 0x0F)};
  if (byte >= 0xF0 && byte <= 0xF4) return {4, 0x10000, static_cast<char32_t>(byte & 0x07)};
  return {0, 0, 0};
}

// Reads one code point and moves `text` behind it; a malformed byte is read alone.
char32_t TakeUtf8(std::string_view& text) {
  const auto [length, least, bits] = ReadLead(static_cast<std::uint8_t>(text.front()));
  char32_t c = bits;
  bool valid = length > 0 && text.size() >= static_cast<std::size_t>(length);
  for (int i = 1; valid && i < length; ++i) {
    const auto byte = static_cast<std::uint8_t>(text[static_cast<std::size_t>(i)]);
    valid = (byte & 0xC0) == 0x80;
    c = (c << 6) | (byte & 0x3F);
  }
  valid = valid && c >= least && c <= 0x10FFFF && !IsSurrogate(c);
  text.remove_prefix(valid ? static_cast<std::size_t>(length) : 1);
  return valid ? c : kReplacement;
}

// Reads one code point from UTF-16 units; an unpaired surrogate is read as it stands.
template <typename Unit>
char32_t TakeUtf16(std::basic_string_view<Unit>& text) {
  const auto first = static_cast<char32_t>(static_cast<char16_t>(text.front()));
  text.remove_prefix(1);
  if (!IsHighSurrogate(first) || text.empty()) return first;
  const auto second = static_cast<char32_t>(static_cast<char16_t>(text.front()));
  if (!IsLowSurrogate(second)) return first;
  text.remove_prefix(1);
  return Join(first, second);
}

char32_t TakeWide(std::wstring_view& text) {
  if constexpr (kWideIsUtf16) {
    return TakeUtf16(text);
  } else {
    const auto c = static_cast<char32_t>(text.front());
    text.remove_prefix(1);
    return c <= 0x10FFFF ? c : kReplacement;
  }
}

}  // namespace

std::wstring Utf8ToWide(std::string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) AppendWide(wide, TakeUtf8(text));
  return wide;
}

std::string WideToUtf8(std::wstring_view text) {
  std::string narrow;
  narrow.reserve(text.size());
  while (!text.empty()) {
    const char32_t c = TakeWide(text);
    AppendUtf8(narrow, IsSurrogate(c) ? kReplacement : c);
  }
  return narrow;
}

std::u32string WideToUtf32(std::wstring_view text) {
  std::u32string codePoints;
  codePoints.reserve(text.size());
  while (!text.empty()) codePoints.push_back(TakeWide(text));
  return codePoints;
}

std::u16string WideToUtf16(std::wstring_view text) {
  std::u16string units;
  units.reserve(text.size());
  while (!text.empty()) AppendUtf16(units, TakeWide(text));
  return units;
}

std::wstring Utf16ToWide(std::u16string_view text) {
  std::wstring wide;
  wide.reserve(text.size());
  while (!text.empty()) AppendWide(wide, TakeUtf16(text));
  return wide;
}

}  // namespace common
