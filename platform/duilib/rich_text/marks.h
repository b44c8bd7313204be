#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/duilib/look/colour.h"

namespace DuiLib {

/// A stretch of text in one look. What is not given is the label's own.
struct TextRun {
  std::wstring text;
  std::optional<int> font;  // its number in the theme
  std::optional<Colour> colour;
  std::optional<std::size_t> link;  // the number of the link, counted from 0
};

/// Splits a text at its marks: {f N} a font, {c #RRGGBB} a colour, {a} a link, each until its
/// {/f}, {/c}, {/a} or the end, nested or closed crosswise. A closing mark ends the latest opening
/// of its kind that is open. Braces around anything else are text.
std::vector<TextRun> ParseMarks(std::wstring_view text);

/// The text without its marks.
std::wstring WithoutMarks(std::wstring_view text);

}  // namespace DuiLib
