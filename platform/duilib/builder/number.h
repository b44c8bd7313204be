#pragma once

#include <optional>
#include <string_view>

namespace DuiLib {

/// The whole text as a decimal number of at most six digits, with a minus or without one.
std::optional<int> ParseNumber(std::wstring_view text);

}  // namespace DuiLib
