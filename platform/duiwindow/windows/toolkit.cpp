#include "platform/duiwindow/toolkit.h"

#include <wx/app.h>
#include <wx/fontenum.h>
#include <wx/init.h>
#include <wx/log.h>

#include <initializer_list>

namespace duiwindow {
namespace {

struct Face {
  wxString name;
  wxString semibold;  // a face of its own here; empty if there is none
};

// The first that is installed: the system's own, behind them those that Wine finds.
Face FirstOf(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (!wxFontEnumerator::IsValidFacename(name)) continue;
    const wxString semibold = wxString(name) + " Semibold";
    return {name, wxFontEnumerator::IsValidFacename(semibold) ? semibold : wxString()};
  }
  return {};
}

const Face& FaceFor(bool wide) {
  static const Face& latin =
      *new Face(FirstOf({"Segoe UI", "Open Sans", "Noto Sans", "DejaVu Sans", "Tahoma"}));
  static const Face& chinese = *new Face(
      FirstOf({"Microsoft YaHei UI", "Microsoft YaHei", "WenQuanYi Micro Hei", "SimSun"}));
  return wide && !chinese.name.empty() ? chinese : latin;
}

}  // namespace

void StartToolkit() {
  wxLog::EnableLogging(false);
  wxApp::SetInstance(new wxApp);  // else one that knows no windows is made
  wxInitialize();
}

// The letters of one text are of one face: not every system finds others for those that it lacks.
wxFont MakeFont(const FontWish& wish) {
  const Face& face = FaceFor(wish.wide);
  const bool hasSemibold = wish.bold && !face.semibold.empty();
  const int height = static_cast<int>(wish.dots + 0.5);
  return {wxFontInfo(wxSize(0, height))
              .FaceName(hasSemibold ? face.semibold : face.name)
              .Weight(wish.bold && !hasSemibold ? wxFONTWEIGHT_BOLD : wxFONTWEIGHT_NORMAL)
              .Underlined(wish.underlined)};
}

}  // namespace duiwindow
