#pragma once

#include <string>

#include "manager/host/manager_options.h"
#include "manager/window/settings.h"

namespace manager {

/// How the program ends that shows a window.
inline constexpr int kWindowClosed = 0;
inline constexpr int kManagerSilent = 2;  // another one runs and does not show its window
inline constexpr int kNoDisplay = 4;

/// Shows the manager in a window of the screen until it is closed, or raises the one that has the
/// data folder already. Returns the exit status. When work of the plugin does not end within five
/// seconds of the closing, the process is ended. Throws std::runtime_error saying what is missing.
/// `language` is the one in force.
int RunWindow(const ManagerOptions& options, Settings settings, const std::string& language);

}  // namespace manager
