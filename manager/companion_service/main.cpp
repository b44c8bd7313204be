#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>

#include "manager/companion_service/arguments.h"
#include "manager/companion_service/companion_service.h"
#include "platform/machine/machine.h"
#include "platform/message/broker_connection.h"
#include "platform/os/clock.h"
#include "platform/os/console.h"
#include "platform/os/interrupt.h"
#include "platform/os/paths.h"
#include "platform/util/log_file.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kLook = 50ms;
constexpr auto kLongestLoss = 10s;

std::atomic<bool> endAsked = false;

void AskToEnd() {
  endAsked = true;
}

// Until the end is asked for, or no broker has been reached for some time.
void Serve(const companion::Arguments& arguments) {
  message::ConnectToBroker(arguments.socket.empty() ? message::DefaultBrokerSocket()
                                                    : arguments.socket);
  {
    const companion::CompanionService service(os::DataFolder(), endAsked);
    std::chrono::nanoseconds lost = 0s;
    while (!endAsked && lost < kLongestLoss) {
      os::CurrentClock().Sleep(kLook);
      lost = message::IsConnectedToBroker() ? 0s : lost + kLook;
    }
    message::WaitUntilDelivered();
  }
  message::DisconnectFromBroker();
}

}  // namespace

int main(int argc, char** argv) {
  os::PrepareOutput();
  try {
    companion::Arguments arguments;
    int exitStatus = 0;
    if (!companion::ParseArguments(argc, argv, arguments, exitStatus)) return exitStatus;
    os::OnInterrupt(&AskToEnd, 1);
    if (!arguments.dataFolder.empty())
      os::SetDataFolder(std::filesystem::absolute(arguments.dataFolder));
    if (!arguments.machineFile.empty())
      machine::SetCurrent(machine::ReadMachineFile(arguments.machineFile));
    util::StartLogFile(os::DataFolder() / "log");
    Serve(arguments);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "companion-service: %s\n", error.what());
    return 2;
  }
}
