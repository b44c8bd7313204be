#pragma once

#include "cli/commands.h"
#include "startup/interruptible.h"

namespace cli {

/// While it lives, the first Ctrl-C cancels what goes on; the second ends the program as cancelled.
class Interruptible : public startup::Interruptible {
 public:
  Interruptible() : startup::Interruptible(kCancelled) {}
};

}  // namespace cli
