#include "platform/duiwindow/texts.h"

#include <algorithm>
#include <cmath>

#include "platform/duiwindow/graphics_colour.h"
#include "platform/duiwindow/toolkit.h"
#include "platform/duiwindow/wide.h"

namespace duiwindow {
namespace {

constexpr std::size_t kMostFonts = 64;
constexpr std::size_t kMostExtents = 4096;
constexpr std::size_t kLongestKept = 256;
// Of the size of a font: how high its lines are, and where letters stand in one.
constexpr double kLineHeight = 1.25;
constexpr double kBaseline = 0.98;

}  // namespace

Texts::Texts() : ground(1, 1), fonts(kMostFonts), extents(kMostExtents) {
  context.reset(wxGraphicsRenderer::GetDefaultRenderer()->CreateContextFromImage(ground));
}

int Texts::Width(const DuiLib::Font& font, std::wstring_view text) {
  return static_cast<int>(std::ceil(MeasuredWidth(font, HasWide(text), text)));
}

// Small letters are fitted to dots, some fonts' wider and some narrower than large ones: where the
// widest have their room, none crowd.
double Texts::MeasuredWidth(const DuiLib::Font& font, bool wide, std::wstring_view text) {
  constexpr int kLargeScale = 2;
  return std::max(ExtentAt(1, font, wide, text).width,
                  ExtentAt(kLargeScale, font, wide, text).width / kLargeScale);
}

int Texts::LineHeight(const DuiLib::Font& font) {
  return static_cast<int>(std::lround(font.size * kLineHeight));
}

int Texts::Baseline(const DuiLib::Font& font) {
  return static_cast<int>(std::lround(font.size * kBaseline));
}

bool Texts::HasWide(std::wstring_view text) {
  return std::any_of(text.begin(), text.end(), IsWide);
}

Texts::Extent Texts::ExtentAt(double scale, const DuiLib::Font& font, bool wide,
                              std::wstring_view text) {
  if (text.empty()) return {};
  if (text.size() > kLongestKept) return Measure(scale, font, wide, text);
  return extents.Get({scale, font.size, font.bold, wide, std::wstring(text)},
                     [&] { return Measure(scale, font, wide, text); });
}

Texts::Extent Texts::Measure(double scale, const DuiLib::Font& font, bool wide,
                             std::wstring_view text) {
  context->SetFont(FontAt(scale, font, wide, 0));
  double width = 0;
  double height = 0;
  double descent = 0;
  double leading = 0;
  context->GetTextExtent(wxString(text.data(), text.size()), &width, &height, &descent, &leading);
  return {width, height - descent};
}

const wxGraphicsFont& Texts::FontAt(double scale, const DuiLib::Font& font, bool wide,
                                    std::uint32_t argb) {
  return fonts.Get({scale, font.size, font.bold, font.underlined, wide, argb}, [&] {
    return wxGraphicsRenderer::GetDefaultRenderer()->CreateFont(
        MakeFont({font.size * scale, font.bold, font.underlined, wide}), GraphicsColour(argb));
  });
}

}  // namespace duiwindow
