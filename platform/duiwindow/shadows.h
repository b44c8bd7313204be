#pragma once

#include <wx/graphics.h>

#include <cstdint>
#include <tuple>

#include "platform/duiwindow/latest_cache.h"

namespace duiwindow {

/// The soft shadow of a box, all in dots.
struct ShadowShape {
  int width = 0;
  int height = 0;
  int radius = 0;
  int blur = 0;
  std::uint32_t argb = 0;

  bool operator<(const ShadowShape& other) const {
    return std::tie(width, height, radius, blur, argb) <
           std::tie(other.width, other.height, other.radius, other.blur, other.argb);
  }
};

class Shadows {
 public:
  Shadows();

  /// As large as the box with `blur` more on each side. Null for one that would be too large.
  const wxGraphicsBitmap& Of(const ShadowShape& shape);

 private:
  LatestCache<ShadowShape, wxGraphicsBitmap> bitmaps;
};

}  // namespace duiwindow
