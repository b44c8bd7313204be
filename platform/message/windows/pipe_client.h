#pragma once

#include <filesystem>

#include "platform/os/windows/handle.h"

namespace message {

/// Opens the client's end of a pipe, which the server may ask who it is but not act for. Null when
/// there is none, when no instance waits at this moment or when this user may not; GetLastError
/// then tells which.
os::Handle OpenPipe(const std::filesystem::path& name);

/// Whether a process of this user serves the pipe that this is the client's end of.
bool IsServedByUser(HANDLE pipe);

}  // namespace message
