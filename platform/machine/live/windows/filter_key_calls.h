#pragma once

#include <windows.h>

#include "platform/machine/interface/machine.h"

namespace machine {

/// As SystemParametersInfoW.
using SystemParametersCall = BOOL(WINAPI*)(UINT action, UINT size, void* value, UINT change);

/// Whether the system drops short and repeated key strokes, as an owner may have asked of it
/// without meaning to: code 1 when it does. A session without such a setting passes.
TestAnswer TestFilterKeys(SystemParametersCall call);

/// Turns that off, for now and for later sessions; the rest of the owner's setting stays. Code 0
/// once it is off.
RepairAnswer TurnFilterKeysOff(SystemParametersCall call);

}  // namespace machine
