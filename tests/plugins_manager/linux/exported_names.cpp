#include "tests/plugins_manager/exported_names.h"

#include <iterator>
#include <sstream>

#include "platform/os/process.h"

std::vector<std::string> ExportedNames(const char* library) {
  const auto listed = os::RunProcess(
      {"nm", "-D", "--defined-only", "--format=just-symbols", library}, std::chrono::seconds(60));
  if (!listed || listed->exitStatus != 0) return {};
  std::istringstream lines(listed->output);
  return {std::istream_iterator<std::string>(lines), {}};
}
