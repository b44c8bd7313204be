#pragma once

namespace DuiLib {

/// What a text is written in. Lines are as high as the text measure says.
struct Font {
  int size = 14;  // points of the unscaled window
  bool bold = false;
  bool underlined = false;
  bool operator==(const Font&) const = default;
};

}  // namespace DuiLib
