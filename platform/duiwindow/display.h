#pragma once

#include <wx/toplevel.h>

#include <functional>
#include <string>

// What windows need of the system beyond the toolkit.
namespace duiwindow {

/// Makes ready for windows. False, and a line that says why, where no display answers.
bool ConnectDisplay(std::string& reason);

/// Lets the person drag a window whose pointer has just been pressed.
void DragWindow(wxTopLevelWindow& window);

/// Whether a window is told where it stands.
bool TellsPlaces();

/// Whether the system asks for dark windows.
bool AsksForDark();

/// Has it called, on the UI thread, when something has changed that AsksForDark looks at. Once.
void WatchDark(std::function<void()> changed);

}  // namespace duiwindow
