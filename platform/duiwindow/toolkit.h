#pragma once

#include <wx/font.h>

// What differs between the systems.
namespace duiwindow {

/// Before anything else is asked of wxWidgets.
void StartToolkit();

/// A font whose letters are so many dots large.
wxFont MakeFont(double dots, wxFontWeight weight, bool underlined);

}  // namespace duiwindow
