#include "manager/arguments.h"

#include "common/path_option.h"
#include "startup/command_line.h"
#include "startup/usage_error.h"

namespace manager {
namespace {

using common::AddPathOption;

void AddDrive(CLI::App& app, DriveOptions& options) {
  CLI::App* const drive = app.add_subcommand(
      "drive", "With --headless: carry out commands, one per line; docs/drive.md lists them");
  AddPathOption(*drive, "script", options.script, "Where they are (default: standard input)");
  AddPathOption(*drive, "--plugin", options.plugin,
                "Load this plugin (default: that of the installation)");
  drive->add_flag("--simple-text", options.simpleText,
                  "Measure text by a simple rule; no pictures then");
  drive
      ->add_option_function<int>(
          "--wait-limit", [&options](int ms) { options.waitLimit = std::chrono::milliseconds(ms); },
          "Real milliseconds that a command takes at most (default: 60000)")
      ->type_name("MS")
      ->check(CLI::Range(1, 86'400'000));
}

}  // namespace

bool ParseArguments(int argc, const char* const* argv, DriveOptions& options) {
  CLI::App app("Shows the pages of the hardware diagnosis.", "laptop-manager");
  common::TakeSlashesAsPaths(app);
  bool headless = false;
  app.add_flag("--headless", headless, "Without a window on a screen");
  startup::AddDiagnosisOptions(app, options);
  app.add_flag("--allow-restart", options.allowRestart,
               "Restart the computer when a repair needs it and the user agrees");
  AddDrive(app, options);
  app.require_subcommand(1);
  app.fallthrough();
  if (!startup::Parse(app, argc, argv)) return false;
  if (!headless) throw startup::UsageError("drive needs --headless; see laptop-manager --help");
  return true;
}

}  // namespace manager
