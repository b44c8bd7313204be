#include "platform/duilib/builder/number.h"

namespace DuiLib {

std::optional<int> ParseNumber(std::wstring_view text) {
  constexpr std::size_t kMostDigits = 6;
  const bool negative = text.starts_with(L'-');
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  int number = 0;
  for (const wchar_t digit : text) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    number = number * 10 + (digit - L'0');
  }
  return negative ? -number : number;
}

}  // namespace DuiLib
