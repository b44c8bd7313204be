#pragma once

#include "platform/duilib/controls/list.h"

namespace orv::sysdiagnose {

/// Timers of pages tick as often.
inline constexpr int kTickMs = 20;

/// How far a list goes in each tick to come from where it is to `target` within a second, a line at
/// least.
int ScrollBackStep(DuiLib::CListUI& list, int target);

}  // namespace orv::sysdiagnose
