#pragma once

#include <string>
#include <vector>

#include "platform/os/windows/handle.h"

namespace os {

/// The words as one command line, quoted so that a program's C library splits it into them again.
std::wstring CommandLineOf(const std::vector<std::string>& words);

struct StartedProcess {
  Handle process;  // null when it could not be started; GetLastError then tells why
  Handle job;      // of the process and all that it starts; none of them outlives the job
};

/// Starts a program found in the search path (never in the current folder) without a console and
/// without input. It inherits nothing but the handles given here, which must be inheritable; a
/// null one stands for nothing written.
StartedProcess StartProcess(const std::vector<std::string>& words, HANDLE output, HANDLE errors);

}  // namespace os
