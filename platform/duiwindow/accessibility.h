#pragma once

namespace duiwindow {

class Canvas;

/// Tells the system's accessibility names, roles and states of the controls in a canvas, where wx
/// has a way to.
void MakeAccessible(Canvas& canvas);

/// Tells it which control has the focus, if that has changed.
void ReportFocus(Canvas& canvas);

}  // namespace duiwindow
