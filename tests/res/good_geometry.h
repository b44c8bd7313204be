#pragma once

#include "platform/duilib/tree/paint_manager.h"

/// Fails the test where, in what shows of a window, siblings overlap, something sticks out of what
/// holds it, or a text is cut without an ellipsis. What is scrolled out of sight counts, too.
void ExpectGoodGeometry(DuiLib::CPaintManagerUI& manager);
