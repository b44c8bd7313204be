#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string_view>

#include "platform/duilib/look/font.h"
#include "platform/duilib/tree/geometry.h"

namespace DuiLib {

/// A colour, alpha first, or two with a run from left to right between them.
struct Fill {
  std::uint32_t argb = 0;
  std::optional<std::uint32_t> endArgb;
  bool operator==(const Fill&) const = default;
};

/// A rectangle with round corners; a radius that is too large is as large as the sides allow.
struct Box {
  Rect rect;
  int radius = 0;
  bool operator==(const Box&) const = default;
};

/// What trees are painted on. All sizes are unscaled points.
class Surface {
 public:
  Surface() = default;
  virtual ~Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;

  /// From here on nothing outside of it is painted, nor outside of those that hold already.
  virtual void PushClip(const Rect& rect) = 0;
  virtual void PopClip() = 0;

  virtual void FillBox(const Box& box, const Fill& fill) = 0;
  /// A line of that width at the inner side of the box's edge.
  virtual void DrawBorder(const Box& box, int width, std::uint32_t argb) = 0;
  /// What lies around the box, so many points soft.
  virtual void DrawShadow(const Box& box, int blur, std::uint32_t argb) = 0;
  /// The whole picture in the middle of the room: at its own size, or shrunk to fit; with a tint
  /// its alpha in that colour. A picture that cannot be read is nothing.
  virtual void DrawPicture(const std::filesystem::path& file, const Rect& room,
                           std::optional<std::uint32_t> tint) = 0;
  /// A text without line breaks that begins at a point of its baseline; it is as wide as the
  /// painter's measure says.
  virtual void DrawText(std::wstring_view text, const Font& font, std::uint32_t argb,
                        Point start) = 0;
};

}  // namespace DuiLib
