#pragma once

#include <vector>

#include "cli/arguments.h"

namespace cli {

/// The categories to test: those named, else all offered ones but those that the machine is built
/// without. Says in a line which these are.
std::vector<orv::sysdiagnose::enmHardwareID> CategoriesToTest(const Arguments& arguments);

}  // namespace cli
