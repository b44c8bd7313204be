#pragma once

#include "manager/headless/driver.h"

namespace manager {

/// Throws startup::UsageError. Returns false when help was asked for and printed.
bool ParseArguments(int argc, const char* const* argv, DriveOptions& options);

}  // namespace manager
