#include "manager/companion_service/arguments.h"

#include <CLI/CLI.hpp>

namespace companion {

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments, int& exitStatus) {
  CLI::App app("Offers the logs of the hardware diagnosis for upload.", "companion-service");
  app.add_option("--data-dir", arguments.dataFolder,
                 "Folder with the log and the events (default: the user's data folder)")
      ->type_name("DIR");
  app.add_option("--machine", arguments.machineFile,
                 "Hash the identifiers of the machine that FILE describes, not of this one")
      ->type_name("FILE");
  app.add_option("--socket", arguments.socket, "Socket of the broker (default: the user's)")
      ->type_name("FILE");
  try {
    app.parse(argc, argv);
    return true;
  } catch (const CLI::ParseError& end) {
    exitStatus = app.exit(end) == 0 ? 0 : 2;
    return false;
  }
}

}  // namespace companion
