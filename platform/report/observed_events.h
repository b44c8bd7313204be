#pragma once

#include <functional>

#include "platform/os/export.h"
#include "platform/report/event_data_report.h"

namespace report {

/// From now on calls `observer` with every event that this process sends, in order, on the thread
/// that sends it; it must not send. Null ends that: no call runs or comes any more. For the
/// program, not for plugins.
UTIL_API void ObserveEvents(std::function<void(const tagLogInfo&)> observer);

}  // namespace report
