#pragma once

#include "platform/duilib/controls/frame_animation.h"

namespace orv::sysdiagnose {

/// What shows how a row or an item of the detect page stands.
enum class StatusSign { None, AtWork, RowPassed, RowAbnormal, ItemPassed, ItemAbnormal, Count };

/// Puts the sign in its place; passed over when there is no place. UI thread only.
void ShowSign(DuiLib::CFrameAnimationUI* place, StatusSign sign);

}  // namespace orv::sysdiagnose
