#include "manager/companion_service/arguments.h"

#include "common/path_option.h"
#include "startup/command_line.h"

namespace companion {

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app("Offers the logs of the hardware diagnosis for upload.", "companion-service");
  common::TakeSlashesAsPaths(app);
  common::AddPathOption(app, "--data-dir", arguments.dataFolder,
                        "Folder with the log and the events (default: the user's data folder)",
                        "DIR");
  common::AddPathOption(app, "--machine", arguments.machineFile,
                        "Hash the identifiers of the machine that FILE describes, not of this one");
  common::AddPathOption(app, "--socket", arguments.socket,
                        "Socket of the broker (default: the user's)");
  return startup::Parse(app, argc, argv);
}

}  // namespace companion
