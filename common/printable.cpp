#include "common/printable.h"

#include <algorithm>

#include "common/text.h"

namespace common {
namespace {

bool IsControl(wchar_t c) {
  const auto code = static_cast<char32_t>(c);
  return code < 0x20 || (code >= 0x7F && code < 0xA0) || code == 0x2028 || code == 0x2029 ||
         (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

}  // namespace

std::string Printable(const std::wstring& text) {
  std::wstring shown = text;
  std::replace_if(shown.begin(), shown.end(), &IsControl, L'?');
  return WideToUtf8(shown);
}

}  // namespace common
