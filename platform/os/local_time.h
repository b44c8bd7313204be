#pragma once

#include "platform/os/clock.h"

namespace os {

/// Local calendar time as the system tells it.
LocalTime SystemLocalTime();

/// The calendar time of the system's time zone, so many seconds after 1970-01-01 00:00:00 UTC.
LocalTime LocalTimeAt(std::int64_t seconds);

}  // namespace os
