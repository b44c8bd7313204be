#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "cli/report_file.h"
#include "common/path_option.h"
#include "platform/machine/interface/parts.h"
#include "startup/command_line.h"

namespace cli {
namespace {

using common::AddPathOption;
using orv::sysdiagnose::enmHardwareID;

// By category id.
constexpr const auto& kCategoryNames = machine::kPartNames;
static_assert(kCategoryNames.size() == orv::sysdiagnose::kHardwareIdCount);

std::string AllNames() {
  std::string names;
  for (const std::string_view name : kCategoryNames)
    names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
}

enmHardwareID ParseCategory(const std::string& text) {
  const auto named = std::find(kCategoryNames.begin(), kCategoryNames.end(), text);
  if (named != kCategoryNames.end())
    return static_cast<enmHardwareID>(named - kCategoryNames.begin());
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || text.empty())
    throw UsageError("unknown category \"" + text + "\"; give a number or one of " + AllNames());
  return static_cast<enmHardwareID>(number);
}

void AddPlainOption(CLI::App& command, Arguments& arguments) {
  command.add_flag("--plain", arguments.plain,
                   "Leave serial numbers and MAC addresses as they are; else they are hashed");
}

void AddReportOptions(CLI::App& run, Arguments& arguments) {
  AddPathOption(run, "--report", arguments.reportFile,
                "Write the run as a page (FILE.html) or as data (FILE.json)");
  AddPlainOption(run, arguments);
}

void AddSocketOption(CLI::App& command, Arguments& arguments) {
  AddPathOption(command, "--socket", arguments.socket,
                "Socket of the broker (default: the user's own)");
}

void AddLogsOptions(CLI::App& command, Arguments& arguments) {
  command.add_flag("--upload", arguments.upload, "Pack them into the outbox of the data folder");
  command.add_flag("--show", arguments.showArchive, "Then show the archive in its folder")
      ->needs("--upload");
  AddSocketOption(command, arguments);
}

void AddRecordOptions(CLI::App& record, Arguments& arguments) {
  AddPathOption(record, "file", arguments.recordingFile, "Where the machine file goes")->required();
  record.add_flag("--tests", arguments.withTests, "Record the answers of all tests too");
  record.add_flag("--force", arguments.replaceFile, "Replace the file if it exists");
  AddPlainOption(record, arguments);
}

void AddGlobalOptions(CLI::App& app, Arguments& arguments) {
  app.set_version_flag("--version", SYSDIAGNOSE_VERSION);
  AddPathOption(app, "--machine", arguments.machineFile,
                "Diagnose the machine that FILE describes instead of this one");
  AddPathOption(app, "--data-dir", arguments.dataFolder,
                "Folder for history, events and log (default: the user's data folder)", "DIR");
  AddPathOption(app, "--app-dir", arguments.appFolder,
                "Installation folder whose config/ is read (default: that of this program)", "DIR");
  AddPathOption(app, "--system-root", arguments.systemRoot,
                "Read /proc, /sys and the product version file below DIR", "DIR");
  app.add_flag("--external", arguments.externalDisks,
               "Count plugged-in disks (USB, SD cards) among this machine's too");
  app.add_option("--lang", arguments.language,
                 "Language of the texts, a file of res/culture, or ids")
      ->type_name("LANG");
  app.add_flag("--json", arguments.json, "Print one JSON object per line");
  app.add_flag("--capture", arguments.capture,
               "Write every message that is posted to messages.jsonl in the data folder");
  app.require_subcommand(1);
  app.fallthrough();
}

void AddCommands(CLI::App& app, Arguments& arguments, std::vector<std::string>& categories) {
  const auto command = [&](const char* name, const char* description, Command chosen) {
    CLI::App* sub = app.add_subcommand(name, description);
    sub->callback([&arguments, chosen] { arguments.command = chosen; });
    return sub;
  };
  const std::string categoryHelp = "Numbers or names: " + AllNames();
  command("list", "Offered categories with their devices", Command::List);
  command("info", "Information sheets; of all offered categories if none is named", Command::Info)
      ->add_option("category", categories, categoryHelp)
      ->type_name("CATEGORY");
  CLI::App* run = command(
      "run", "Test categories in the order given; all offered ones if none is named", Command::Run);
  run->add_option("category", categories, categoryHelp)->type_name("CATEGORY");
  CLI::App* check = command("check", "Check all offered categories as the manager's main page does",
                            Command::Check);
  for (CLI::App* sub : {run, check}) {
    sub->add_flag("--repair", arguments.repair, "Then make the repairs offered; asks first");
    sub->add_flag("--yes", arguments.assumeYes, "Do not ask before a repair")->needs("--repair");
  }
  command("scan", "Information sheets of all offered categories, as they are found", Command::Scan);
  AddReportOptions(*run, arguments);
  command("history", "Latest run of each day, newest first", Command::History)
      ->add_option("--count", arguments.historyCount, "Number of days at most")
      ->type_name("N")
      ->check(CLI::Range(1, 100000))
      ->capture_default_str();
  AddRecordOptions(*command("record", "Write this machine down as a machine file", Command::Record),
                   arguments);
  AddSocketOption(
      *command("serve", "Relay messages between this user's programs until Ctrl-C", Command::Serve),
      arguments);
  AddLogsOptions(*command("logs", "Log files that can be uploaded, asked of the companion service",
                          Command::Logs),
                 arguments);
}

}  // namespace

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app("Diagnoses the hardware of this machine.", "sysdiagnose");
  common::TakeSlashesAsPaths(app);
  std::vector<std::string> categories;
  AddGlobalOptions(app, arguments);
  AddCommands(app, arguments, categories);
  if (!startup::Parse(app, argc, argv)) return false;
  if (!arguments.reportFile.empty() && !IsReportName(arguments.reportFile))
    throw UsageError("a report's file ends in .html or .json");
  std::transform(categories.begin(), categories.end(), std::back_inserter(arguments.categories),
                 &ParseCategory);
  return true;
}

}  // namespace cli
