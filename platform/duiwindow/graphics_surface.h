#pragma once

#include <wx/graphics.h>

#include "platform/duilib/painter/surface.h"
#include "platform/duiwindow/paints.h"

namespace duiwindow {

/// Paints on a graphics context whose unit is the dot.
class GraphicsSurface final : public DuiLib::Surface {
 public:
  /// The origin of what is painted lies at that point.
  GraphicsSurface(wxGraphicsContext& on, Paints& with, double atScale, DuiLib::Point atOrigin)
      : context(on), paints(with), scale(atScale), origin(atOrigin) {}

  void PushClip(const DuiLib::Rect& rect) override;
  void PopClip() override;
  void FillBox(const DuiLib::Box& box, const DuiLib::Fill& fill) override;
  void DrawBorder(const DuiLib::Box& box, int width, std::uint32_t argb) override;
  void DrawShadow(const DuiLib::Box& box, int blur, std::uint32_t argb) override;
  void DrawPicture(const std::filesystem::path& file, const DuiLib::Rect& room,
                   std::optional<std::uint32_t> tint) override;
  void DrawText(std::wstring_view text, const DuiLib::Font& font, std::uint32_t argb,
                DuiLib::Point start) override;

 private:
  wxRect Dots(const DuiLib::Rect& rect) const;
  int AcrossDots(int x) const;
  int DownDots(int y) const;

  wxGraphicsContext& context;
  Paints& paints;
  const double scale;
  const DuiLib::Point origin;
};

}  // namespace duiwindow
