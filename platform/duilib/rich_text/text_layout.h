#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/duilib/look/font.h"
#include "platform/duilib/rich_text/marks.h"
#include "platform/duilib/tree/geometry.h"
#include "platform/duilib/window/text_measure.h"

namespace DuiLib {

/// A stretch of one line, in one look.
struct TextPiece {
  std::wstring text;
  Font font;
  std::optional<Colour> colour;
  std::optional<std::size_t> link;
  int left = 0;
  int width = 0;
};

struct TextLine {
  std::vector<TextPiece> pieces;
  int top = 0;
  int width = 0;
  int height = 0;
  int baseline = 0;  // below its top
};

/// Text set into lines, from the corner of its room.
struct TextLayout {
  std::vector<TextLine> lines;
  Size size;
  bool isCut = false;  // something did not fit
};

struct TextRules {
  bool multiLine = false;  // breaks at line breaks, blanks, and around wide characters
  bool ellipsis = false;   // what does not fit ends in "…"
};

/// Where a text is set; a negative number is no limit.
struct TextRoom {
  int width = -1;
  int height = -1;
  bool operator==(const TextRoom&) const = default;
};

using FontTable = std::function<Font(std::optional<int> number)>;

/// Sets text. The first line is kept however high the room is.
TextLayout SetText(const std::vector<TextRun>& runs, TextRoom room, TextRules rules,
                   const FontTable& fonts, TextMeasure& measure);

}  // namespace DuiLib
