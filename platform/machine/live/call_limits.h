#pragma once

#include <chrono>

#include "platform/os/export.h"

namespace machine {

/// How long a call of the live machine may take. One that has a limit can hang in the system, in a
/// driver, a service or a tool: it is made by a process of its own and given up when its time is
/// over.
enum class CallLimit {
  None,    // made in this process
  Device,  // asks devices and services: 10 seconds
  Sound,   // plays and records: 20 seconds
  Repair,  // changes something and waits for it to take effect: 40 seconds
  Count
};

/// Any thread. None has no limit and is not asked for.
UTIL_API std::chrono::milliseconds LimitOf(CallLimit limit);

/// Changes a limit for this process. For a program's start and for tests.
UTIL_API void SetLimit(CallLimit limit, std::chrono::milliseconds time);

}  // namespace machine
