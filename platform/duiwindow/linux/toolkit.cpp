#include "platform/duiwindow/toolkit.h"

#include <wx/log.h>

namespace duiwindow {
namespace {

// The first that is installed serves, the others for letters that it lacks.
constexpr const char* kFaces = "Open Sans,Noto Sans,DejaVu Sans,WenQuanYi Micro Hei";
constexpr double kPointsPerDot = 72.0 / 96.0;

}  // namespace

// Pictures and fonts need no display, so none is opened.
void StartToolkit() {
  wxLog::EnableLogging(false);
}

// Without a display any font but one by its point size and face name crashes.
wxFont MakeFont(const FontWish& wish) {
  // A face without a bold cut, as the Chinese one, is made so for what asks for no less.
  const wxFontWeight bold = wish.wide ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_SEMIBOLD;
  const wxFontWeight weight = wish.bold ? bold : wxFONTWEIGHT_NORMAL;
  return {wxFontInfo(wish.dots * kPointsPerDot)
              .FaceName(kFaces)
              .Weight(weight)
              .Underlined(wish.underlined)};
}

}  // namespace duiwindow
