#pragma once

#include <wx/graphics.h>
#include <wx/image.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/duilib/window/text_measure.h"
#include "platform/duiwindow/latest_cache.h"

namespace duiwindow {

/// Measures texts, in points, and gives the fonts to paint them with.
class Texts final : public DuiLib::TextMeasure {
 public:
  Texts();

  int Width(const DuiLib::Font& font, std::wstring_view text) override;
  int LineHeight(const DuiLib::Font& font) override;
  int Baseline(const DuiLib::Font& font) override;

  /// In points, whatever the scale is.
  double MeasuredWidth(const DuiLib::Font& font, bool wide, std::wstring_view text);

  struct Extent {
    double width = 0;
    double ascent = 0;  // from its top to its baseline
  };
  /// In dots at that scale. `wide` says that the text, or the one that it is a part of, has wide
  /// letters.
  Extent ExtentAt(double scale, const DuiLib::Font& font, bool wide, std::wstring_view text);
  const wxGraphicsFont& FontAt(double scale, const DuiLib::Font& font, bool wide,
                               std::uint32_t argb);
  static bool HasWide(std::wstring_view text);

 private:
  using FontKey = std::tuple<double, int, bool, bool, bool, std::uint32_t>;

  Extent Measure(double scale, const DuiLib::Font& font, bool wide, std::wstring_view text);

  wxImage ground;  // of the context that measures
  std::unique_ptr<wxGraphicsContext> context;
  LatestCache<FontKey, wxGraphicsFont> fonts;
  LatestCache<std::tuple<double, int, bool, bool, std::wstring>, Extent> extents;
};

}  // namespace duiwindow
