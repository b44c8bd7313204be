#pragma once

#include "platform/duilib/controls/list.h"

namespace orv::sysdiagnose {

/// Scrolls as little as shows a control in one of the list's rows that is in sight.
void ScrollIntoSight(DuiLib::CListUI& list, const DuiLib::CControlUI& control);

}  // namespace orv::sysdiagnose
