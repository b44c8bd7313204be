#include "platform/duilib/look/image.h"

#include <algorithm>

#include "common/ascii.h"

namespace DuiLib {

std::optional<Image> Image::Parse(std::wstring_view text) {
  const std::wstring whole = common::Trimmed(text);
  if (whole.empty()) return Image();
  const auto equals = whole.find(L'=');
  if (equals == std::wstring::npos || common::Trimmed(whole.substr(0, equals)) != L"file") {
    return std::nullopt;
  }
  const std::wstring quoted = common::Trimmed(whole.substr(equals + 1));
  if (quoted.size() < 2 || quoted.front() != L'\'' || quoted.find(L'\'', 1) != quoted.size() - 1) {
    return std::nullopt;
  }
  Image image{quoted.substr(1, quoted.size() - 2)};
  std::replace(image.file.begin(), image.file.end(), L'\\', L'/');
  return image;
}

Image Image::Frame(int number) const {
  const auto dot = std::min(file.rfind(L'.'), file.size());
  return {file.substr(0, dot) + std::to_wstring(number) + file.substr(dot)};
}

}  // namespace DuiLib
