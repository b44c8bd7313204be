#pragma once

#include <optional>
#include <string_view>

#include "platform/duilib/layout/length.h"
#include "platform/duilib/tree/geometry.h"

// The values of attributes as layouts write them; nothing for what is not one.
namespace DuiLib {

/// "true" or "false".
std::optional<bool> ParseBool(std::wstring_view text);

/// A number from 0 to kMaxLength.
std::optional<int> ParsePoints(std::wstring_view text);

/// A number from 0 to 64.
std::optional<int> ParseShadow(std::wstring_view text);

/// "shrink", "grow", "grow:<shares>" from 1 to 100, or points.
std::optional<Length> ParseLength(std::wstring_view text);

/// A number from 1 to 100.
std::optional<int> ParseColumns(std::wstring_view text);

/// "left,top,right,bottom" in points.
std::optional<Insets> ParseInsets(std::wstring_view text);

/// "start", "middle" or "end".
std::optional<Place> ParsePlace(std::wstring_view text);

}  // namespace DuiLib
