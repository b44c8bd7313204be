#include <cstdio>
#include <exception>

#include "cli/arguments.h"
#include "cli/commands.h"
#include "cli/language.h"
#include "cli/output.h"
#include "cli/terminal_text.h"
#include "common/text.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/culture.h"
#include "platform/machine/machine.h"
#include "platform/message/ipc_message_client.h"
#include "platform/message/message_capture.h"
#include "platform/os/console.h"
#include "platform/os/paths.h"
#include "platform/util/log_file.h"

namespace {

// Puts the folders, the machine and the language in force. Throws what says why it cannot.
void SetUp(const cli::Arguments& arguments) {
  if (!arguments.dataFolder.empty())
    os::SetDataFolder(std::filesystem::absolute(arguments.dataFolder));
  if (!arguments.appFolder.empty())
    os::SetConfigurationRoot(std::filesystem::absolute(arguments.appFolder));
  if (!arguments.systemRoot.empty())
    os::SetSystemRoot(std::filesystem::absolute(arguments.systemRoot));
  if (!arguments.machineFile.empty())
    machine::SetCurrent(machine::ReadMachineFile(arguments.machineFile));
  DuiLib::UICulture::GetInstance()->SetLanguage(
      arguments.language.empty() ? cli::UserLanguage() : arguments.language,
      os::InstallationFolder() / "res");
  util::StartLogFile(os::DataFolder() / "log");
  if (arguments.capture) message::StartCapture(os::DataFolder() / "messages.jsonl");
}

constexpr int (*kCommands[])(const cli::Arguments&) = {
    &cli::RunList,  &cli::RunInfo,      &cli::RunDiagnosis, &cli::RunHistory, &cli::RunScan,
    &cli::RunCheck, &cli::RunRecording, &cli::RunServe,     &cli::RunLogs};

}  // namespace

int main(int argc, char** argv) {
  os::PrepareOutput();
  int status = cli::kWrongUsage;
  try {
    cli::Arguments arguments;
    if (!cli::ParseArguments(argc, argv, arguments)) return cli::kAllNormal;
    SetUp(arguments);
    status = kCommands[static_cast<std::size_t>(arguments.command)](arguments);
    cli::RequireOutput();
  } catch (const std::exception& error) {
    status = cli::kWrongUsage;
    const std::string line = cli::Printable(common::Utf8ToWide(error.what()));
    std::fprintf(stderr, "sysdiagnose: %s\n", line.c_str());
  }
  concurrency::wait_until_idle();
  message::WaitUntilDelivered();
  return status;
}
