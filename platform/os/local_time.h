#pragma once

#include "platform/os/clock.h"

namespace os {

/// Local calendar time as the system tells it.
LocalTime SystemLocalTime();

}  // namespace os
