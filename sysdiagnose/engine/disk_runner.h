#pragma once

#include "sysdiagnose/engine/run_callbacks.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// Announces each physical disk and reports its SMART attributes. Always normal: faults show in the
/// items and events alone.
CategoryOutcome RunDisks(TestObjects& objects, const CategoryCallbacks& callbacks);

}  // namespace orv::sysdiagnose
