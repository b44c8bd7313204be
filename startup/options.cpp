#include "startup/options.h"

#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "platform/os/paths.h"
#include "platform/util/log_file.h"

namespace startup {

void PutInForce(const Options& options) {
  constexpr struct {
    std::filesystem::path Options::*folder;
    void (*set)(std::filesystem::path);
  } kFolders[] = {{&Options::dataFolder, &os::SetDataFolder},
                  {&Options::appFolder, &os::SetConfigurationRoot},
                  {&Options::systemRoot, &os::SetSystemRoot}};
  for (const auto& [folder, set] : kFolders)
    if (!(options.*folder).empty()) set(std::filesystem::absolute(options.*folder));
  machine::SetExternalDisksCounted(options.externalDisks);
  if (!options.machineFile.empty())
    machine::SetCurrent(machine::ReadMachineFile(options.machineFile));
  util::StartLogFile(os::DataFolder() / "log");
}

}  // namespace startup
