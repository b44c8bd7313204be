#include "platform/duilib/builder/values.h"

#include <array>

#include "platform/duilib/builder/number.h"
#include "platform/duilib/look/style.h"

namespace DuiLib {

std::optional<bool> ParseBool(std::wstring_view text) {
  if (text == L"true") return true;
  if (text == L"false") return false;
  return std::nullopt;
}

std::optional<int> ParsePoints(std::wstring_view text) {
  const auto number = ParseNumber(text);
  return number && *number >= 0 && *number <= kMaxLength ? number : std::nullopt;
}

std::optional<int> ParseShadow(std::wstring_view text) {
  const auto points = ParsePoints(text);
  return points && *points <= kMaxShadow ? points : std::nullopt;
}

std::optional<Length> ParseLength(std::wstring_view text) {
  constexpr std::wstring_view kShares = L"grow:";
  constexpr int kMostShares = 100;
  if (text == L"shrink") return Length::Shrink();
  if (text == L"grow") return Length::Grow();
  if (text.starts_with(kShares)) {
    const auto shares = ParseNumber(text.substr(kShares.size()));
    if (!shares || *shares < 1 || *shares > kMostShares) return std::nullopt;
    return Length::Grow(*shares);
  }
  const auto points = ParsePoints(text);
  return points ? std::optional(Length::Number(*points)) : std::nullopt;
}

std::optional<int> ParseColumns(std::wstring_view text) {
  constexpr int kMostColumns = 100;
  const auto number = ParseNumber(text);
  return number && *number >= 1 && *number <= kMostColumns ? number : std::nullopt;
}

std::optional<Insets> ParseInsets(std::wstring_view text) {
  std::array<int, 4> sides{};
  for (std::size_t index = 0; index < sides.size(); ++index) {
    const bool last = index + 1 == sides.size();
    const auto comma = text.find(L',');
    if ((comma == std::wstring_view::npos) != last) return std::nullopt;
    const auto points = ParsePoints(text.substr(0, comma));
    if (!points) return std::nullopt;
    sides[index] = *points;
    if (!last) text.remove_prefix(comma + 1);
  }
  return Insets{sides[0], sides[1], sides[2], sides[3]};
}

std::optional<Place> ParsePlace(std::wstring_view text) {
  if (text == L"start") return Place::kStart;
  if (text == L"middle") return Place::kMiddle;
  if (text == L"end") return Place::kEnd;
  return std::nullopt;
}

}  // namespace DuiLib
