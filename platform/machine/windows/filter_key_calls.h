#pragma once

#include <windows.h>

#include "platform/machine/machine.h"

namespace machine {

/// As SystemParametersInfoW.
using SystemParametersCall = BOOL(WINAPI*)(UINT action, UINT size, void* value, UINT change);

/// What filter_keys.h offers, through this call.
TestAnswer TestFilterKeys(SystemParametersCall call);
RepairAnswer TurnFilterKeysOff(SystemParametersCall call);

}  // namespace machine
