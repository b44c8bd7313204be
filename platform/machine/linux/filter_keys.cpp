#include "platform/machine/filter_keys.h"

namespace machine {

// Such a setting belongs to each desktop here, not to the system.
TestAnswer TestFilterKeys() {
  return {};
}

std::optional<RepairAnswer> TurnFilterKeysOff() {
  return std::nullopt;
}

}  // namespace machine
