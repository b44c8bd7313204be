#pragma once

#include <functional>

#include "platform/duilib/notify/notify.h"
#include "platform/os/export.h"

namespace DuiLib {

/// Calls what a plugin handed over. What it throws is logged as "WHAT failed: REASON" and ends
/// here, while the plugin that it comes from is loaded.
DUILIB_API void CallContained(const std::function<void()>& function, const char* what);

/// Whether the hook of a control, which may be empty or be set anew while it runs, took the
/// notification. One that fails did.
bool TellHook(std::function<bool(TNotifyUI&)> hook, TNotifyUI& notification);

}  // namespace DuiLib
