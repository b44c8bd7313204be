#pragma once

#include "platform/machine/interface/machine.h"

// What the desktop of the user's session does to keys. A session that cannot be asked could not be
// tested.
namespace machine {

/// Code 1 when it takes keys only that are held down for a while, or drops quick repeats.
TestAnswer TestSlowKeys();

/// Turns that off. Code 0 once it is off.
RepairAnswer TurnSlowKeysOff();

/// Code 1 when the desktop's service behind the hot keys does not run.
TestAnswer TestHotKeys();

}  // namespace machine
