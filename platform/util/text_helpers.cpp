#include "platform/util/text_helpers.h"

#include <system_error>

#include "common/ascii.h"
#include "common/text.h"

namespace DE {

std::string WcharToChar(const std::wstring& text) {
  return common::WideToUtf8(text);
}

std::string UpperCase(const std::string& text) {
  return common::UpperCase(text);
}

std::string TrimSP(const std::string& text) {
  return common::Trimmed(text);
}
std::wstring TrimSP(const std::wstring& text) {
  return common::Trimmed(text);
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
