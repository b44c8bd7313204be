#pragma once

#include <wx/graphics.h>
#include <wx/image.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <tuple>

#include "platform/duiwindow/latest_cache.h"

namespace duiwindow {

/// The pictures of the resources, read once and kept as they were painted last.
class Pictures {
 public:
  Pictures();

  struct Size {
    double width = 0;
    double height = 0;
  };
  /// Its own size in points; none when it cannot be read, which is one log line.
  Size OwnSize(const std::filesystem::path& file, double scale);
  /// So many dots large, with a tint its alpha in that colour.
  const wxGraphicsBitmap& At(const std::filesystem::path& file, double scale, wxSize dots,
                             std::optional<std::uint32_t> tint);

 private:
  struct Source {
    wxImage image;
    double dotsPerPoint = 1;
  };
  using SourceKey = std::pair<std::filesystem::path, bool>;
  using BitmapKey = std::tuple<std::filesystem::path, bool, int, int, std::optional<std::uint32_t>>;

  const Source& SourceOf(const std::filesystem::path& file, bool large);

  LatestCache<SourceKey, Source> sources;
  LatestCache<BitmapKey, wxGraphicsBitmap> bitmaps;
};

}  // namespace duiwindow
