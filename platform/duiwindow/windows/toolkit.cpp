#include "platform/duiwindow/toolkit.h"

#include <wx/fontenum.h>
#include <wx/init.h>
#include <wx/log.h>

namespace duiwindow {
namespace {

const wxString& Face() {
  static const wxString& face = *new wxString([] {
    for (const char* name : {"Segoe UI", "Microsoft YaHei UI", "Tahoma"}) {
      if (wxFontEnumerator::IsValidFacename(name)) return wxString(name);
    }
    return wxString();
  }());
  return face;
}

}  // namespace

void StartToolkit() {
  wxLog::EnableLogging(false);
  wxInitialize();
}

wxFont MakeFont(double dots, wxFontWeight weight, bool underlined) {
  const int height = static_cast<int>(dots + 0.5);
  return {wxFontInfo(wxSize(0, height)).FaceName(Face()).Weight(weight).Underlined(underlined)};
}

}  // namespace duiwindow
