#pragma once

#include <filesystem>
#include <memory>

#include "platform/os/child_process.h"
#include "startup/options.h"

namespace startup {

/// Starts the companion service of this installation for the data folder in force and the broker at
/// that socket. Throws std::runtime_error when it cannot be started.
std::unique_ptr<os::ChildProcess> StartCompanionService(const Options& options,
                                                        const std::filesystem::path& socket);

}  // namespace startup
