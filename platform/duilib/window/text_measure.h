#pragma once

#include <string_view>

#include "platform/duilib/look/font.h"
#include "platform/os/export.h"

namespace DuiLib {

/// How large text is in unscaled points. A painter has one of its own.
class DUILIB_API TextMeasure {
 public:
  virtual ~TextMeasure();

  /// How wide a text without line breaks is.
  virtual int Width(const Font& font, std::wstring_view text) = 0;
  virtual int LineHeight(const Font& font) = 0;
  /// How far below the top of a line its letters stand.
  virtual int Baseline(const Font& font) = 0;
};

/// The measure where no painter is loaded: every character up to U+2E7F is half as wide as the font
/// is large, every other one as wide as the font is large.
class DUILIB_API SimpleTextMeasure final : public TextMeasure {
 public:
  int Width(const Font& font, std::wstring_view text) override;
  int LineHeight(const Font& font) override;
  int Baseline(const Font& font) override;
};

}  // namespace DuiLib
