#pragma once

#include <filesystem>

#include "platform/os/windows/handle.h"

namespace os {

/// The file of a loaded module, null standing for the running program; empty when the system does
/// not tell. As long as it may be.
std::filesystem::path ModuleFile(HMODULE module);

}  // namespace os
