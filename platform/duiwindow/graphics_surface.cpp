#include "platform/duiwindow/graphics_surface.h"

#include <wx/brush.h>

#include <algorithm>
#include <cmath>

#include "platform/duiwindow/graphics_colour.h"

namespace duiwindow {
namespace {

bool ShowsNothing(std::uint32_t argb) {
  return argb >> 24 == 0;
}

int Rounded(double dots) {
  return static_cast<int>(std::lround(dots));
}

double FittingRadius(double radius, const wxRect& rect) {
  return std::min({radius, rect.width / 2.0, rect.height / 2.0});
}

}  // namespace

// Edges lie on whole dots, so that they are crisp at any scale and neighbours meet.
int GraphicsSurface::AcrossDots(int x) const {
  return Rounded((x + origin.x) * scale);
}

int GraphicsSurface::DownDots(int y) const {
  return Rounded((y + origin.y) * scale);
}

wxRect GraphicsSurface::Dots(const DuiLib::Rect& rect) const {
  const int left = AcrossDots(rect.left);
  const int top = DownDots(rect.top);
  return {left, top, std::max(0, AcrossDots(rect.right) - left),
          std::max(0, DownDots(rect.bottom) - top)};
}

void GraphicsSurface::PushClip(const DuiLib::Rect& rect) {
  context.PushState();
  const wxRect dots = Dots(rect);
  context.Clip(dots.x, dots.y, dots.width, dots.height);
}

void GraphicsSurface::PopClip() {
  context.PopState();
}

void GraphicsSurface::FillBox(const DuiLib::Box& box, const DuiLib::Fill& fill) {
  const wxRect dots = Dots(box.rect);
  if (dots.IsEmpty() || (ShowsNothing(fill.argb) && ShowsNothing(fill.endArgb.value_or(0)))) return;
  if (fill.endArgb) {
    context.SetBrush(context.CreateLinearGradientBrush(dots.x, dots.y, dots.x + dots.width, dots.y,
                                                       GraphicsColour(fill.argb),
                                                       GraphicsColour(*fill.endArgb)));
  } else {
    context.SetBrush(wxBrush(GraphicsColour(fill.argb)));
  }
  wxGraphicsPath path = context.CreatePath();
  path.AddRoundedRectangle(dots.x, dots.y, dots.width, dots.height,
                           FittingRadius(box.radius * scale, dots));
  context.FillPath(path);
}

// Filled between two edges: a pen would straddle dots.
void GraphicsSurface::DrawBorder(const DuiLib::Box& box, int width, std::uint32_t argb) {
  const wxRect outer = Dots(box.rect);
  if (outer.IsEmpty() || ShowsNothing(argb)) return;
  const int line = std::max(1, Rounded(width * scale));
  const double radius = FittingRadius(box.radius * scale, outer);
  wxGraphicsPath path = context.CreatePath();
  path.AddRoundedRectangle(outer.x, outer.y, outer.width, outer.height, radius);
  const wxRect inner(outer.x + line, outer.y + line, outer.width - 2 * line,
                     outer.height - 2 * line);
  if (inner.width > 0 && inner.height > 0) {
    path.AddRoundedRectangle(inner.x, inner.y, inner.width, inner.height,
                             FittingRadius(std::max(0.0, radius - line), inner));
  }
  context.SetBrush(wxBrush(GraphicsColour(argb)));
  context.FillPath(path, wxODDEVEN_RULE);
}

void GraphicsSurface::DrawShadow(const DuiLib::Box& box, int blur, std::uint32_t argb) {
  const wxRect dots = Dots(box.rect);
  if (ShowsNothing(argb)) return;
  const int soft = Rounded(blur * scale);
  const wxGraphicsBitmap& bitmap =
      paints.shadows.Of({dots.width, dots.height, Rounded(box.radius * scale), soft, argb});
  if (bitmap.IsNull()) return;
  context.DrawBitmap(bitmap, dots.x - soft, dots.y - soft, dots.width + 2 * soft,
                     dots.height + 2 * soft);
}

void GraphicsSurface::DrawPicture(const std::filesystem::path& file, const DuiLib::Rect& room,
                                  std::optional<std::uint32_t> tint) {
  const wxRect dots = Dots(room);
  const Pictures::Size own = paints.pictures.OwnSize(file, scale);
  if (dots.IsEmpty() || own.width <= 0 || own.height <= 0) return;
  const double shrink =
      std::min({1.0, room.Width() / own.width, room.Height() / own.height}) * scale;
  const wxSize size(std::max(1, Rounded(own.width * shrink)),
                    std::max(1, Rounded(own.height * shrink)));
  context.DrawBitmap(paints.pictures.At(file, scale, size, tint),
                     dots.x + (dots.width - size.x) / 2, dots.y + (dots.height - size.y) / 2,
                     size.x, size.y);
}

void GraphicsSurface::DrawText(std::wstring_view text, const DuiLib::Font& font, std::uint32_t argb,
                               DuiLib::Point start) {
  if (text.empty() || ShowsNothing(argb)) return;
  const Lettering& set = paints.letterings.Of(text, font, scale, argb);
  if (set.bitmap.IsNull()) return;
  context.DrawBitmap(set.bitmap, AcrossDots(start.x) - set.left, DownDots(start.y) - set.ascent,
                     set.size.x, set.size.y);
}

}  // namespace duiwindow
