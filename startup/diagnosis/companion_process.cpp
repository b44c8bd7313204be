#include "startup/diagnosis/companion_process.h"

#include <string>
#include <vector>

#include "common/path_text.h"
#include "platform/os/paths.h"

namespace startup {

std::unique_ptr<os::ChildProcess> StartCompanionService(const Options& options,
                                                        const std::filesystem::path& socket) {
  std::vector<std::string> command = {
      common::PathText(os::ExecutableFolder() / "companion-service"), "--data-dir",
      common::PathText(os::DataFolder()), "--socket", common::PathText(socket)};
  if (!options.machineFile.empty())
    command.insert(command.end(),
                   {"--machine", common::PathText(std::filesystem::absolute(options.machineFile))});
  return std::make_unique<os::ChildProcess>(command);
}

}  // namespace startup
