#include "tests/plugins_manager/library_names.h"

#include <algorithm>
#include <iterator>
#include <sstream>

#include "platform/os/process.h"

namespace {

std::vector<std::string> Symbols(const char* kind, const char* library) {
  const auto listed = os::RunProcess({"nm", "-D", kind, "--format=just-symbols", library},
                                     std::chrono::seconds(60));
  if (!listed || listed->exitStatus != 0) return {};
  std::istringstream lines(listed->output);
  return {std::istream_iterator<std::string>(lines), {}};
}

}  // namespace

std::vector<std::string> ExportedNames(const char* library) {
  return Symbols("--defined-only", library);
}

// A module asks for names and not for the libraries that have them.
std::vector<std::string> ImportedNames(const char* module, const char* library) {
  std::vector<std::string> wanted = Symbols("--undefined-only", module);
  std::vector<std::string> offered = ExportedNames(library);
  std::ranges::sort(wanted);
  std::ranges::sort(offered);
  std::vector<std::string> imported;
  std::ranges::set_intersection(wanted, offered, std::back_inserter(imported));
  return imported;
}
