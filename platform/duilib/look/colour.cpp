#include "platform/duilib/look/colour.h"

#include <algorithm>
#include <utility>

namespace DuiLib {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;

int HexDigit(wchar_t digit) {
  if (digit >= L'0' && digit <= L'9') return digit - L'0';
  if (digit >= L'A' && digit <= L'F') return digit - L'A' + 10;
  if (digit >= L'a' && digit <= L'f') return digit - L'a' + 10;
  return -1;
}

bool IsNameLetter(wchar_t letter) {
  return (letter >= L'a' && letter <= L'z') || letter == L'-';
}

std::optional<Colour> ParseNumber(std::wstring_view digits) {
  if (digits.size() != 6 && digits.size() != 8) return std::nullopt;
  std::uint32_t number = 0;
  for (const wchar_t digit : digits) {
    const int value = HexDigit(digit);
    if (value < 0) return std::nullopt;
    number = number << 4 | static_cast<std::uint32_t>(value);
  }
  return Colour(digits.size() == 6 ? number | kOpaque : number);
}

}  // namespace

Colour Colour::Named(std::wstring name) {
  Colour colour;
  colour.name = std::move(name);
  return colour;
}

std::optional<Colour> Colour::Parse(std::wstring_view text) {
  if (text.starts_with(L'#')) return ParseNumber(text.substr(1));
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsNameLetter)) return std::nullopt;
  return Named(std::wstring(text));
}

}  // namespace DuiLib
