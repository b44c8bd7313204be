#include <wx/imagpng.h>
#include <wx/mstream.h>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>

#include "common/path_text.h"
#include "platform/duilib/painter/painter.h"
#include "platform/duilib/painter/tree_painter.h"
#include "platform/duiwindow/graphics_surface.h"
#include "platform/os/export.h"
#include "platform/os/replace_file.h"

namespace duiwindow {
namespace {

using DuiLib::Colour;
using DuiLib::CPaintManagerUI;
using DuiLib::Point;
using DuiLib::Rect;
using DuiLib::Size;

constexpr double kMostDots = 64 << 20;

Rect Whole(Size size) {
  return {0, 0, size.width, size.height};
}

// The picture as a file.
std::string Png(wxImage& image) {
  wxMemoryOutputStream stream;
  if (!wxPNGHandler().SaveFile(&image, stream, false)) return {};
  std::string bytes(stream.GetLength(), '\0');
  stream.CopyTo(bytes.data(), bytes.size());
  return bytes;
}

class WindowPainter final : public DuiLib::Painter {
 public:
  DuiLib::TextMeasure& Measure() override { return paints.texts; }

  void PaintInto(const std::filesystem::path& png,
                 const std::vector<CPaintManagerUI*>& windows) override {
    if (windows.empty()) throw std::runtime_error(common::PathText(png) + ": no window to paint");
    const double scale = windows.front()->GetScale();
    const Size size = windows.front()->GetClientSize();
    const double width = std::round(size.width * scale);
    const double height = std::round(size.height * scale);
    if (!(width >= 1 && height >= 1 && width * height <= kMostDots)) {
      throw std::runtime_error(common::PathText(png) + ": the window has no size for a picture");
    }
    wxImage image(static_cast<int>(width), static_cast<int>(height));
    {
      const std::unique_ptr<wxGraphicsContext> context(
          wxGraphicsRenderer::GetDefaultRenderer()->CreateContextFromImage(image));
      if (!context)
        throw std::runtime_error(common::PathText(png) + ": the picture cannot be made");
      Paint(*context, windows, scale);
    }
    const std::string bytes = Png(image);
    if (bytes.empty()) {
      throw std::runtime_error(common::PathText(png) + ": the picture cannot be made");
    }
    os::ReplaceFile(png, bytes);
  }

 private:
  void Paint(wxGraphicsContext& context, const std::vector<CPaintManagerUI*>& windows,
             double scale) {
    CPaintManagerUI& first = *windows.front();
    const Size size = first.GetClientSize();
    GraphicsSurface ground(context, paints, scale, {});
    DuiLib::PaintWindow(first, ground, Whole(size));
    if (windows.size() == 1) return;
    ground.FillBox({Whole(size), 0}, {first.ArgbOf(Colour::Named(L"veil")), std::nullopt});
    for (std::size_t index = 1; index < windows.size(); ++index) {
      const Size inner = windows[index]->GetClientSize();
      const Point corner{(size.width - inner.width) / 2, (size.height - inner.height) / 2};
      GraphicsSurface surface(context, paints, scale, corner);
      DuiLib::PaintTree(*windows[index], surface,
                        Whole(inner).GrownBy(windows[index]->GetPaintReach()));
    }
  }

  Paints& paints = ThePaints();
};

}  // namespace
}  // namespace duiwindow

extern "C" ORV_EXPORT DuiLib::Painter* ThePainter() {
  static DuiLib::Painter& painter = *new duiwindow::WindowPainter;
  return &painter;
}
