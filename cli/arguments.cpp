#include "cli/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "cli/commands.h"
#include "cli/report_file.h"
#include "cli/single_item.h"
#include "cli/texts.h"
#include "common/path_option.h"
#include "platform/machine/interface/parts.h"
#include "startup/command_line.h"
#include "startup/diagnosis/help_text.h"
#include "startup/diagnosis/usage_words.h"

namespace cli {
namespace {

using common::AddPathOption;
using orv::sysdiagnose::enmHardwareID;
using startup::HelpText;

// By category id.
constexpr const auto& kCategoryNames = machine::kPartNames;
constexpr int kMostDays = 100000;

static_assert(kCategoryNames.size() == orv::sysdiagnose::kHardwareIdCount);

std::string AllNames() {
  std::string names;
  for (const std::string_view name : kCategoryNames)
    names += (names.empty() ? "" : ", ") + std::string(name);
  return names;
}

std::string ExitStatuses() {
  std::string text = HelpText(L"EXIT_STATUS") + ":";
  for (int status = kAllNormal; status <= kNotTestedAsAsked; ++status)
    text += "\n  " + std::to_string(status) + "  " +
            HelpText((L"EXIT_" + std::to_wstring(status)).c_str());
  return text;
}

// Empty for a number of days.
std::string CountFault(const std::string& text) {
  int number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  const bool isCount = error == std::errc() && stop == end && number >= 1 && number <= kMostDays;
  return isCount ? std::string() : Message(L"NO_COUNT", {text, std::to_string(kMostDays)});
}

void AddPlainOption(CLI::App& command, Arguments& arguments) {
  command.add_flag("--plain", arguments.plain, HelpText(L"PLAIN"));
}

void AddReportOptions(CLI::App& run, Arguments& arguments) {
  AddPathOption(run, "--report", arguments.reportFile, HelpText(L"REPORT"));
  AddPlainOption(run, arguments);
}

void AddSocketOption(CLI::App& command, Arguments& arguments) {
  AddPathOption(command, "--socket", arguments.socket, HelpText(L"SOCKET"));
}

void AddLogsOptions(CLI::App& command, Arguments& arguments) {
  command.add_flag("--upload", arguments.upload, HelpText(L"UPLOAD"));
  command.add_flag("--show", arguments.showArchive, HelpText(L"SHOW"))->needs("--upload");
  AddSocketOption(command, arguments);
}

void AddRecordOptions(CLI::App& record, Arguments& arguments) {
  AddPathOption(record, "file", arguments.recordingFile, HelpText(L"FILE"))->required();
  record.add_flag("--tests", arguments.withTests, HelpText(L"TESTS"));
  record.add_flag("--force", arguments.replaceFile, HelpText(L"FORCE"));
  AddPlainOption(record, arguments);
}

void AddGlobalOptions(CLI::App& app, Arguments& arguments) {
  app.set_version_flag("--version", SYSDIAGNOSE_VERSION, HelpText(L"VERSION"));
  startup::AddDiagnosisOptions(app, arguments);
  app.add_flag("--json", arguments.json, HelpText(L"JSON"));
  app.require_subcommand(1);
  app.fallthrough();
}

void AddHistoryOptions(CLI::App& history, Arguments& arguments) {
  CLI::Option* const count =
      history.add_option("--count", arguments.historyCount, HelpText(L"COUNT"))
          ->type_name("N")
          ->check(&CountFault)
          ->capture_default_str();
  history.add_flag("--all", arguments.allHistory, HelpText(L"ALL"))->excludes(count);
}

void AddAgainOptions(CLI::App& run, CLI::Option& category, Arguments& arguments) {
  CLI::Option* const failed = run.add_flag("--failed", arguments.failedAgain, HelpText(L"FAILED"));
  CLI::Option* const resumed = run.add_flag("--resume", arguments.resumed, HelpText(L"RESUME"));
  failed->excludes(resumed)->excludes(&category);
  resumed->excludes(&category);
}

void AddCommands(CLI::App& app, Arguments& arguments, std::vector<std::string>& categories) {
  const auto command = [&](const char* name, const wchar_t* description, Command chosen) {
    CLI::App* sub = app.add_subcommand(name, HelpText(description));
    sub->group(HelpText(L"COMMANDS"));
    sub->set_help_flag("-h,--help", HelpText(L"HELP"));
    sub->callback([&arguments, chosen] { arguments.command = chosen; });
    return sub;
  };
  const std::string categoryHelp = HelpText(L"CATEGORY") + AllNames();
  command("list", L"LIST", Command::List);
  command("info", L"INFO", Command::Info)
      ->add_option("category", categories, categoryHelp)
      ->type_name("CATEGORY");
  CLI::App* run = command("run", L"RUN", Command::Run);
  CLI::Option* const category =
      run->add_option("category", categories, categoryHelp + HelpText(L"ITEM"))
          ->type_name("CATEGORY");
  AddAgainOptions(*run, *category, arguments);
  CLI::App* check = command("check", L"CHECK", Command::Check);
  for (CLI::App* sub : {run, check}) {
    sub->add_flag("--repair", arguments.repair, HelpText(L"REPAIR"));
    sub->add_flag("--yes", arguments.assumeYes, HelpText(L"YES"))->needs("--repair");
  }
  command("scan", L"SCAN", Command::Scan);
  AddReportOptions(*run, arguments);
  AddHistoryOptions(*command("history", L"HISTORY", Command::History), arguments);
  AddRecordOptions(*command("record", L"RECORD", Command::Record), arguments);
  AddSocketOption(*command("serve", L"SERVE", Command::Serve), arguments);
  AddLogsOptions(*command("logs", L"LOGS", Command::Logs), arguments);
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
  if (!arguments.categories.empty()) throw UsageError(Message(L"ITEMS_AND_CATEGORIES"));
  if (arguments.repair || !arguments.reportFile.empty()) throw UsageError(Message(L"ITEM_ALONE"));
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
    throw UsageError(Message(L"UNKNOWN_CATEGORY", {text, AllNames()}));
  return static_cast<enmHardwareID>(number);
}

bool ParseArguments(int argc, const char* const* argv, Arguments& arguments) {
  CLI::App app(HelpText(L"PROGRAM"), "sysdiagnose");
  startup::SpeakInHelp(app);
  common::TakeSlashesAsPaths(app);
  std::vector<std::string> categories;
  app.footer(ExitStatuses());
  AddGlobalOptions(app, arguments);
  AddCommands(app, arguments, categories);
  if (!startup::Parse(app, argc, argv, &startup::UsageWords)) return false;
  if (!arguments.reportFile.empty() && !IsReportName(arguments.reportFile))
    throw UsageError(Message(L"REPORT_NAME"));
  TakeCategories(categories, arguments);
  return true;
}

}  // namespace cli
