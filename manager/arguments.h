#pragma once

#include <optional>

#include "manager/headless/driver.h"
#include "manager/window/settings.h"

namespace manager {

/// What the command line asks for: a window, or with `headless` a drive.
struct Arguments : DriveOptions {
  bool headless = false;
  std::optional<ThemeChoice> theme;  // of the window; none: as it was
};

/// Throws startup::UsageError. Returns false when help was asked for and printed.
bool ParseArguments(int argc, const char* const* argv, Arguments& arguments);

}  // namespace manager
