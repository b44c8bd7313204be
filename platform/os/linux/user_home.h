#pragma once

#include <sys/types.h>

#include <filesystem>

namespace os {

/// The home folder that the system's user database names for a user; empty when there is none or it
/// does not exist. Any thread.
std::filesystem::path HomeInUserDatabase(uid_t user);

}  // namespace os
