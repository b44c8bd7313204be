#include <algorithm>
#include <array>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "platform/duilib/culture/culture.h"
#include "platform/message/message_capture.h"
#include "platform/os/paths.h"
#include "startup/interruptible.h"
#include "startup/language.h"
#include "startup/program.h"

namespace {

// What is found out about a machine that a file describes stays apart from this machine's history,
// unless the user says where it goes.
startup::Options InFolderOfItsOwn(const cli::Arguments& arguments) {
  startup::Options options = arguments;
  if (!options.machineFile.empty() && options.dataFolder.empty())
    options.dataFolder = os::DataFolder() / "described";
  return options;
}

// Puts the folders, the machine and the language in force. Throws what says why it cannot.
void SetUp(const cli::Arguments& arguments) {
  startup::PutInForce(InFolderOfItsOwn(arguments));
  const std::filesystem::path resources = os::InstallationFolder() / "res";
  DuiLib::UICulture::GetInstance()->SetLanguage(
      arguments.language.empty() ? startup::UserLanguage(resources)
                                 : startup::NamedLanguage(arguments.language, resources),
      resources);
  if (arguments.capture) message::StartCapture(os::DataFolder() / "messages.jsonl");
}

constexpr int (*kCommands[])(const cli::Arguments&) = {
    &cli::RunList,  &cli::RunInfo,      &cli::RunDiagnosis, &cli::RunHistory, &cli::RunScan,
    &cli::RunCheck, &cli::RunRecording, &cli::RunServe,     &cli::RunLogs};

// Those that end in their own way when they are interrupted.
bool IsInterruptible(const cli::Arguments& arguments) {
  constexpr auto kCancelling =
      std::to_array({cli::Command::Run, cli::Command::Scan, cli::Command::Check,
                     cli::Command::Serve, cli::Command::Logs});
  return arguments.singleItems.empty() && std::ranges::count(kCancelling, arguments.command) != 0;
}

}  // namespace

int main(int argc, char** argv) {
  return startup::RunProgram("sysdiagnose", [argc, argv]() -> int {
    cli::Arguments arguments;
    if (!cli::ParseArguments(argc, argv, arguments)) return cli::kAllNormal;
    if (IsInterruptible(arguments)) startup::ExpectInterrupts(cli::kCancelled);
    SetUp(arguments);
    const int status = kCommands[static_cast<std::size_t>(arguments.command)](arguments);
    cli::RequireOutput();
    return status;
  });
}
