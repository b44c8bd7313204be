#pragma once

#include <wx/graphics.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

#include "platform/duiwindow/latest_cache.h"
#include "platform/duiwindow/texts.h"

namespace duiwindow {

/// A text as it was painted, in dots.
struct Lettering {
  wxGraphicsBitmap bitmap;
  wxSize size;
  int left = 0;    // how far in the text begins
  int ascent = 0;  // how far down its baseline is
};

/// Texts that were painted, so that the same one is not set again from one frame to the next.
class Letterings {
 public:
  explicit Letterings(Texts& with);

  /// Null bitmap for a text that is too large to be shown.
  const Lettering& Of(std::wstring_view text, const DuiLib::Font& font, double scale,
                      std::uint32_t argb);

 private:
  using Key = std::tuple<std::wstring, double, int, bool, bool, std::uint32_t>;

  Lettering Set(std::wstring_view text, const DuiLib::Font& font, double scale, std::uint32_t argb);

  Texts& texts;
  LatestCache<Key, Lettering> letterings;
};

}  // namespace duiwindow
