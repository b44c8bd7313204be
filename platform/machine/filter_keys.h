#pragma once

#include <optional>

#include "platform/machine/machine.h"

namespace machine {

/// Whether the system drops short and repeated key strokes, as an owner may have asked of it
/// without meaning to: code 1 when it does. A system without such a setting passes.
TestAnswer TestFilterKeys();

/// Turns that off, for now and for later sessions; the rest of the owner's setting stays. Code 0
/// once it is off. Nothing on a system without such a setting.
std::optional<RepairAnswer> TurnFilterKeysOff();

}  // namespace machine
