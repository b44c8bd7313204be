#include "manager/companion_service/arguments.h"

#include "common/path_option.h"

namespace companion {

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments, int& exitStatus) {
  CLI::App app("Offers the logs of the hardware diagnosis for upload.", "companion-service");
  common::TakeSlashesAsPaths(app);
  common::AddPathOption(app, "--data-dir", arguments.dataFolder,
                        "Folder with the log and the events (default: the user's data folder)",
                        "DIR");
  common::AddPathOption(app, "--machine", arguments.machineFile,
                        "Hash the identifiers of the machine that FILE describes, not of this one");
  common::AddPathOption(app, "--socket", arguments.socket,
                        "Socket of the broker (default: the user's)");
  try {
    app.parse(argc, argv);
    return true;
  } catch (const CLI::ParseError& end) {
    exitStatus = app.exit(end) == 0 ? 0 : 2;
    return false;
  }
}

}  // namespace companion
