#include <algorithm>
#include <array>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "platform/os/paths.h"
#include "startup/diagnosis/diagnosis_options.h"
#include "startup/interruptible.h"
#include "startup/program.h"

namespace {

// What is found out about a machine that a file describes stays apart from this machine's history,
// unless the user says where it goes.
startup::DiagnosisOptions InFolderOfItsOwn(const cli::Arguments& arguments) {
  startup::DiagnosisOptions options = arguments;
  if (!options.machineFile.empty() && options.dataFolder.empty())
    options.dataFolder = os::DataFolder() / "described";
  return options;
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
  startup::ExpectInterrupts(cli::kCancelled);
  return startup::RunProgram("sysdiagnose", [argc, argv]() -> int {
    startup::SpeakAsTheCommandLineAsks(argc, argv);
    cli::Arguments arguments;
    if (!cli::ParseArguments(argc, argv, arguments)) return cli::kAllNormal;
    if (!IsInterruptible(arguments)) startup::EndAtInterrupts(cli::kCancelled);
    startup::PutDiagnosisInForce(InFolderOfItsOwn(arguments));
    const int status = kCommands[static_cast<std::size_t>(arguments.command)](arguments);
    cli::RequireOutput();
    return status;
  });
}
