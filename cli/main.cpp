#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "startup/diagnosis/diagnosis_options.h"
#include "startup/program.h"

namespace {

constexpr int (*kCommands[])(const cli::Arguments&) = {
    &cli::RunList,  &cli::RunInfo,      &cli::RunDiagnosis, &cli::RunHistory, &cli::RunScan,
    &cli::RunCheck, &cli::RunRecording, &cli::RunServe,     &cli::RunLogs};

}  // namespace

int main(int argc, char** argv) {
  return startup::RunProgram("sysdiagnose", [argc, argv]() -> int {
    cli::Arguments arguments;
    if (!cli::ParseArguments(argc, argv, arguments)) return cli::kAllNormal;
    startup::PutDiagnosisInForce(arguments);
    const int status = kCommands[static_cast<std::size_t>(arguments.command)](arguments);
    cli::RequireOutput();
    return status;
  });
}
