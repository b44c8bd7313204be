#pragma once

#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/run_callbacks.h"
#include "sysdiagnose/engine/test_objects.h"

namespace orv::sysdiagnose {

/// Runs the test items of a category one after another and sends its report event. An id without a
/// category runs nothing and is normal. What a library throws goes through.
CategoryOutcome RunCategory(enmHardwareID category, TestObjects& objects,
                            const CategoryCallbacks& callbacks);

}  // namespace orv::sysdiagnose
