#pragma once

#include <memory>

#include "platform/machine/interface/machine.h"

namespace machine {

/// The machine in force: the live one unless another was set.
UTIL_API Machine& Current();

/// Whether the machine in force is the live one.
UTIL_API bool IsLive();

/// Puts a machine in force, null for the live one again. For a program's start and for tests; no
/// hardware call may be running.
UTIL_API void SetCurrent(std::unique_ptr<Machine> machine);

/// Whether the live machine counts disks that are plugged in, such as USB disks and SD cards, among
/// its own. It does not by default. For a program's start, before the first question.
UTIL_API void SetExternalDisksCounted(bool counted);

}  // namespace machine
