#include "platform/util/text_helpers.h"

#include <algorithm>
#include <system_error>

#include "common/text.h"

namespace DE {
namespace {

template <typename Char>
std::basic_string<Char> Trimmed(const std::basic_string<Char>& text) {
  const auto isSpace = [](Char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
  const auto begin = std::find_if_not(text.begin(), text.end(), isSpace);
  const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isSpace);
  return {begin, end.base()};
}

}  // namespace

std::string WcharToChar(const std::wstring& text) {
  return common::WideToUtf8(text);
}

std::string UpperCase(std::string text) {
  for (char& c : text)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return text;
}

std::string TrimSP(const std::string& text) {
  return Trimmed(text);
}
std::wstring TrimSP(const std::wstring& text) {
  return Trimmed(text);
}

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> pieces;
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find(separator, begin)) != std::string::npos;
       begin = end + 1)
    pieces.push_back(text.substr(begin, end - begin));
  pieces.push_back(text.substr(begin));
  return pieces;
}

bool FileExists(const std::filesystem::path& file) {
  std::error_code error;
  return std::filesystem::exists(file, error);
}

}  // namespace DE
