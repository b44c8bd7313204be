#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace os {

struct ProcessResult {
  int exitStatus = 0;
  std::string output;  // standard output, at most 4 MiB
};

/// Runs a program found in the search path with this argument vector (no shell), without input, its
/// error output discarded, and waits for its end. Nothing when it cannot be started, is ended by a
/// signal, prints more than the limit or outlives `limit`; it is then killed, and not waited for
/// where the system does not let go of it. `fault`, where given, takes which of these it was, as
/// the end of a sentence about the program. Any thread.
std::optional<ProcessResult> RunProcess(const std::vector<std::string>& arguments,
                                        std::chrono::milliseconds limit,
                                        std::string* fault = nullptr);

}  // namespace os
