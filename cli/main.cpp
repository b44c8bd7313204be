#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "platform/duilib/culture/culture.h"
#include "platform/message/message_capture.h"
#include "platform/os/paths.h"
#include "startup/language.h"
#include "startup/program.h"

namespace {

// Puts the folders, the machine and the language in force. Throws what says why it cannot.
void SetUp(const cli::Arguments& arguments) {
  startup::PutInForce(arguments);
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

}  // namespace

int main(int argc, char** argv) {
  return startup::RunProgram("sysdiagnose", [argc, argv]() -> int {
    cli::Arguments arguments;
    if (!cli::ParseArguments(argc, argv, arguments)) return cli::kAllNormal;
    SetUp(arguments);
    const int status = kCommands[static_cast<std::size_t>(arguments.command)](arguments);
    cli::RequireOutput();
    return status;
  });
}
