#pragma once

#include "platform/duilib/painter/surface.h"
#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

/// Paints what of a window's tree lies in `clip`, after laying it out. Controls out of the clip are
/// not visited. UI thread only.
DUILIB_API void PaintTree(CPaintManagerUI& window, Surface& surface, const Rect& clip);

/// The same on the window's own ground, and nothing beyond the window.
DUILIB_API void PaintWindow(CPaintManagerUI& window, Surface& surface, const Rect& clip);

}  // namespace DuiLib
