#include "common/ascii.h"

#include <algorithm>

namespace common {
namespace {

template <typename Char>
std::basic_string<Char> Trim(std::basic_string_view<Char> text) {
  const auto isSpace = [](Char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
  const auto begin = std::find_if_not(text.begin(), text.end(), isSpace);
  const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isSpace);
  return {begin, end.base()};
}

template <typename Char>
std::basic_string<Char> Raise(std::basic_string_view<Char> text) {
  std::basic_string<Char> upper(text);
  for (Char& c : upper)
    if (c >= 'a' && c <= 'z') c = static_cast<Char>(c - 'a' + 'A');
  return upper;
}

}  // namespace

std::string Trimmed(std::string_view text) {
  return Trim(text);
}
std::wstring Trimmed(std::wstring_view text) {
  return Trim(text);
}

std::string UpperCase(std::string_view text) {
  return Raise(text);
}
std::wstring UpperCase(std::wstring_view text) {
  return Raise(text);
}

}  // namespace common
