#pragma once

#include <functional>

#include "sysdiagnose/engine/run_model.h"

namespace orv::sysdiagnose {

/// Ends a cancelled run: stores what has been done, tells the owner, and clears the
/// running flag.
void EndCancelledRun(RunModel& model, const std::function<void()>& cancelled);

/// Ends a run that came to its end: posts its summary, stores the record, tells the owner, and
/// clears the running flag.
void EndFinishedRun(RunModel& model, const std::function<void()>& finished);

}  // namespace orv::sysdiagnose
