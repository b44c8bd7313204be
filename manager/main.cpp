#include <cstdio>
#include <ctime>
#include <stdexcept>

#include "manager/arguments.h"
#include "manager/host/plugin.h"
#include "manager/window/window_program.h"
#include "platform/os/process_end.h"
#include "startup/interruptible.h"
#include "startup/program.h"

namespace {

constexpr const char* kProgram = "laptop-manager";
constexpr int kDone = 0;
constexpr int kFailed = 2;
constexpr int kEndedAtOnce = 3;

int Drive(const manager::DriveOptions& options) {
  // Never destroyed: what the plugin leaves behind may wait in it.
  static auto& clock = *new os::VirtualClock(std::time(nullptr));
  manager::Driver driver(options, clock);
  startup::Interruptible interruptible(kEndedAtOnce);
  interruptible.Cancels([&driver] { driver.Stop(); });
  const bool done = driver.Run();
  if (std::ferror(stdout) != 0) throw std::runtime_error("the output could not be written");
  return done ? kDone : kFailed;
}

// --lang and --theme are remembered as if they had been chosen in the window.
int ShowWindow(const manager::Arguments& arguments, manager::Settings settings,
               const std::string& language) {
  if (!arguments.language.empty()) settings.language = arguments.language;
  if (arguments.theme) settings.theme = *arguments.theme;
  return manager::RunWindow(arguments, settings, language);
}

}  // namespace

int main(int argc, char** argv) {
  return startup::RunProgram(kProgram, [argc, argv] {
    startup::SpeakAsTheCommandLineAsks(argc, argv);
    manager::Arguments arguments;
    if (!manager::ParseArguments(argc, argv, arguments)) return kDone;
    manager::Settings settings;
    const std::string language = startup::PutDiagnosisInForce(arguments, [&] {
      if (!arguments.headless) settings = manager::ReadSettings();
      return settings.language;
    });
    int status = kFailed;
    try {
      status = arguments.headless ? Drive(arguments) : ShowWindow(arguments, settings, language);
    } catch (const std::exception& error) {
      startup::PrintError(kProgram, error.what());
    }
    // Its work, which time does not go on for any more, would be waited for without end.
    if (manager::Plugin::IsInProcess(manager::Plugin::FileOf(arguments.plugin)))
      os::EndProcess(status);
    return status;
  });
}
