#include "cli/output.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <system_error>

namespace cli {
namespace {

std::atomic<int> failure = 0;  // errno of the first flush that failed

}  // namespace

void FlushOutput() {
  int none = 0;
  if (std::fflush(stdout) != 0) failure.compare_exchange_strong(none, errno);
}

void RequireOutput() {
  FlushOutput();
  if (failure == 0 && std::ferror(stdout) == 0) return;
  const std::string reason = failure == 0 ? "" : ": " + std::generic_category().message(failure);
  throw std::runtime_error("the output could not be written" + reason);
}

}  // namespace cli
