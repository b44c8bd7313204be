#include "manager/arguments.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/path_option.h"
#include "startup/command_line.h"
#include "startup/usage_error.h"

namespace manager {
namespace {

using common::AddPathOption;

CLI::App* AddDrive(CLI::App& app, DriveOptions& options) {
  CLI::App* const drive = app.add_subcommand(
      "drive", "With --headless: carry out commands, one per line; docs/drive.md lists them");
  AddPathOption(*drive, "script", options.script, "Where they are (default: standard input)");
  drive->add_flag("--simple-text", options.simpleText,
                  "Measure text by a simple rule; no pictures then");
  drive
      ->add_option_function<int>(
          "--wait-limit", [&options](int ms) { options.waitLimit = std::chrono::milliseconds(ms); },
          "Real milliseconds that a command takes at most (default: 60000)")
      ->type_name("MS")
      ->check(CLI::Range(1, 86'400'000));
  return drive;
}

CLI::Option* AddTheme(CLI::App& app, std::optional<ThemeChoice>& theme) {
  return app
      .add_option_function<std::string>(
          "--theme",
          [&theme](const std::string& name) {
            const auto found = std::find(std::begin(kThemeNames), std::end(kThemeNames), name);
            if (found == std::end(kThemeNames))
              throw startup::UsageError("--theme: \"" + name + "\" is none of system, light, dark");
            theme = static_cast<ThemeChoice>(found - std::begin(kThemeNames));
          },
          "Of the window: light, dark or as the system asks (default: as when it was last closed)")
      ->type_name("light|dark|system");
}

}  // namespace

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app("The laptop manager: a window with the hardware diagnosis.", "laptop-manager");
  common::TakeSlashesAsPaths(app);
  app.fallthrough();  // also the subcommand's, which is made later
  app.add_flag("--headless", arguments.headless, "Without a window on a screen, to be driven");
  startup::AddDiagnosisOptions(app, arguments);
  AddPathOption(app, "--plugin", arguments.plugin,
                "Load this plugin (default: that of the installation)");
  app.add_flag("--allow-restart", arguments.allowRestart,
               "Restart the computer when a repair needs it and the user agrees");
  const CLI::Option* const theme = AddTheme(app, arguments.theme);
  const CLI::App* const drive = AddDrive(app, arguments);
  if (!startup::Parse(app, argc, argv)) return false;
  if (drive->parsed() && !arguments.headless)
    throw startup::UsageError("drive needs --headless; see laptop-manager --help");
  if (arguments.headless && !drive->parsed())
    throw startup::UsageError("--headless needs drive; see laptop-manager --help");
  if (arguments.headless && theme->count() != 0)
    throw startup::UsageError("--theme is for a window; a drive has the command theme");
  return true;
}

}  // namespace manager
