#include "platform/duiwindow/accessibility.h"

namespace duiwindow {

// The library has none for what is painted.
void MakeAccessible(Canvas&) {}

void ReportFocus(Canvas&) {}

}  // namespace duiwindow
