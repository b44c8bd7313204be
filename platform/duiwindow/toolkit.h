#pragma once

#include <wx/font.h>

// What differs between the systems.
namespace duiwindow {

/// Before anything else is asked of wxWidgets.
void StartToolkit();

struct FontWish {
  double dots = 0;  // how large its letters are
  bool bold = false;
  bool underlined = false;
  bool wide = false;  // Chinese letters are among them
};

wxFont MakeFont(const FontWish& wish);

}  // namespace duiwindow
