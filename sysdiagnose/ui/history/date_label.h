#pragma once

#include <cstdint>
#include <string>

namespace orv::sysdiagnose {

/// When the local day began that the clock in force tells, in seconds since 1970-01-01 00:00:00
/// UTC.
std::int32_t LastMidnight();

/// What a run at `time` (seconds since 1970-01-01 00:00:00 UTC) is called on the day that began at
/// `midnight`: today, yesterday, or so many days ago. One at exactly midnight is one day ago.
std::wstring DateLabel(std::int64_t time, std::int32_t midnight);

}  // namespace orv::sysdiagnose
