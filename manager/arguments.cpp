#include "manager/arguments.h"

#include <algorithm>
#include <iterator>
#include <string>

#include "common/path_option.h"
#include "startup/command_line.h"
#include "startup/diagnosis/help_text.h"
#include "startup/diagnosis/usage_words.h"
#include "startup/usage_error.h"

namespace manager {
namespace {

using common::AddPathOption;
using startup::HelpText;

constexpr const char* kProgram = "laptop-manager";

startup::UsageError Misused(const wchar_t* text) {
  return startup::UsageError(
      HelpText(L"SEE_HELP", {HelpText(text), std::string(kProgram) + " --help"}));
}

CLI::App* AddDrive(CLI::App& app, DriveOptions& options) {
  CLI::App* const drive = app.add_subcommand("drive", HelpText(L"DRIVE"));
  AddPathOption(*drive, "script", options.script, HelpText(L"SCRIPT"));
  drive->add_flag("--simple-text", options.simpleText, HelpText(L"SIMPLE_TEXT"));
  drive
      ->add_option_function<int>(
          "--wait-limit", [&options](int ms) { options.waitLimit = std::chrono::milliseconds(ms); },
          HelpText(L"WAIT_LIMIT"))
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
              throw startup::UsageError(HelpText(L"NO_SUCH_THEME", {name}));
            theme = static_cast<ThemeChoice>(found - std::begin(kThemeNames));
          },
          HelpText(L"THEME"))
      ->type_name("light|dark|system");
}

}  // namespace

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app(HelpText(L"MANAGER"), kProgram);
  startup::SpeakInHelp(app);
  common::TakeSlashesAsPaths(app);
  app.fallthrough();  // also the subcommand's, which is made later
  app.add_flag("--headless", arguments.headless, HelpText(L"HEADLESS"));
  startup::AddDiagnosisOptions(app, arguments);
  AddPathOption(app, "--plugin", arguments.plugin, HelpText(L"PLUGIN"));
  app.add_flag("--allow-restart", arguments.allowRestart, HelpText(L"ALLOW_RESTART"));
  const CLI::Option* const theme = AddTheme(app, arguments.theme);
  const CLI::App* const drive = AddDrive(app, arguments);
  if (!startup::Parse(app, argc, argv, &startup::UsageWords)) return false;
  if (drive->parsed() && !arguments.headless) throw Misused(L"DRIVE_NEEDS_HEADLESS");
  if (arguments.headless && !drive->parsed()) throw Misused(L"HEADLESS_NEEDS_DRIVE");
  if (arguments.headless && theme->count() != 0) throw Misused(L"THEME_OF_WINDOW");
  return true;
}

}  // namespace manager
