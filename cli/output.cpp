#include "cli/output.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <system_error>

#include "cli/texts.h"

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
  throw std::runtime_error(
      failure == 0 ? Message(L"OUTPUT_LOST")
                   : Message(L"OUTPUT_LOST_FOR", {std::generic_category().message(failure)}));
}

}  // namespace cli
