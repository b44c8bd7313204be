#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "cli/report_file.h"
#include "cli/single_item.h"
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

constexpr const char* kExitStatuses =
    "Exit status:\n"
    "  0  nothing abnormal, and everything named could be tested\n"
    "  1  something is abnormal\n"
    "  2  wrong usage, or a file or output that cannot be read or written\n"
    "  3  cancelled\n"
    "  4  the run failed, or there is nothing to test\n"
    "  5  nothing abnormal, but something named could not be tested";

std::string AllNames() {
  std::string names;
  for (const std::string_view name : kCategoryNames)
    names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
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
  startup::AddDiagnosisOptions(app, arguments);
  app.add_flag("--json", arguments.json, "Print one JSON object per line");
  app.require_subcommand(1);
  app.fallthrough();
}

void AddHistoryOptions(CLI::App& history, Arguments& arguments) {
  CLI::Option* const count =
      history.add_option("--count", arguments.historyCount, "Number of days at most")
          ->type_name("N")
          ->check(CLI::Range(1, 100000))
          ->capture_default_str();
  history.add_flag("--all", arguments.allHistory, "Every run, not the latest of each day")
      ->excludes(count);
}

void AddAgainOptions(CLI::App& run, CLI::Option& category, Arguments& arguments) {
  CLI::Option* const failed =
      run.add_flag("--failed", arguments.failedAgain,
                   "Test again the categories in which the last run found something abnormal");
  CLI::Option* const resumed =
      run.add_flag("--resume", arguments.resumed,
                   "Go on with the categories that the last run, cancelled, did not reach");
  failed->excludes(resumed)->excludes(&category);
  resumed->excludes(&category);
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
  CLI::Option* const category =
      run->add_option("category", categories,
                      categoryHelp + "; CATEGORY/ITEM makes one item of it alone")
          ->type_name("CATEGORY");
  AddAgainOptions(*run, *category, arguments);
  CLI::App* check = command("check", "Check all offered categories as the manager's main page does",
                            Command::Check);
  for (CLI::App* sub : {run, check}) {
    sub->add_flag("--repair", arguments.repair, "Then make the repairs offered; asks first");
    sub->add_flag("--yes", arguments.assumeYes, "Do not ask before a repair")->needs("--repair");
  }
  command("scan", "Information sheets of all offered categories, as they are found", Command::Scan);
  AddReportOptions(*run, arguments);
  AddHistoryOptions(*command("history", "Latest run of each day, newest first", Command::History),
                    arguments);
  AddRecordOptions(*command("record", "Write this machine down as a machine file", Command::Record),
                   arguments);
  AddSocketOption(
      *command("serve", "Relay messages between this user's programs until Ctrl-C", Command::Serve),
      arguments);
  AddLogsOptions(*command("logs", "Log files that can be uploaded, asked of the companion service",
                          Command::Logs),
                 arguments);
}

// Categories, or items of categories: an item is made alone, not in a run.
void TakeCategories(const std::vector<std::string>& words, Arguments& arguments) {
  for (const std::string& word : words) {
    if (IsItemName(word) && arguments.command == Command::Run) {
      RequireItem(word);
      arguments.singleItems.push_back(word);
    } else {
      arguments.categories.push_back(ParseCategory(word));
    }
  }
  if (arguments.singleItems.empty()) return;
  if (!arguments.categories.empty()) throw UsageError("items are not run together with categories");
  if (arguments.repair || !arguments.reportFile.empty())
    throw UsageError("an item is made alone: without --repair and without --report");
}

}  // namespace

enmHardwareID ParseCategory(const std::string& text) {
  const auto named = std::find(kCategoryNames.begin(), kCategoryNames.end(), text);
  if (named != kCategoryNames.end())
    return static_cast<enmHardwareID>(named - kCategoryNames.begin());
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end || text.empty() ||
      !orv::sysdiagnose::IsCategory(static_cast<enmHardwareID>(number)))
    throw UsageError("unknown category \"" + text + "\"; give a number from 0 to 11 or one of " +
                     AllNames());
  return static_cast<enmHardwareID>(number);
}

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app("Diagnoses the hardware of this machine.", "sysdiagnose");
  common::TakeSlashesAsPaths(app);
  std::vector<std::string> categories;
  app.footer(kExitStatuses);
  AddGlobalOptions(app, arguments);
  AddCommands(app, arguments, categories);
  if (!startup::Parse(app, argc, argv)) return false;
  if (!arguments.reportFile.empty() && !IsReportName(arguments.reportFile))
    throw UsageError("a report's file ends in .html or .json");
  TakeCategories(categories, arguments);
  return true;
}

}  // namespace cli
