#include <atomic>
#include <chrono>

#include "manager/companion_service/arguments.h"
#include "manager/companion_service/companion_service.h"
#include "platform/message/broker_connection.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "startup/interruptible.h"
#include "startup/program.h"

namespace {

using namespace std::chrono_literals;

constexpr auto kLook = 50ms;
constexpr auto kLongestLoss = 10s;
constexpr int kEndedAtOnce = 1;

// Until the end is asked for, or no broker has been reached for some time.
void Serve(const companion::Arguments& arguments, const std::atomic<bool>& endAsked) {
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
  return startup::RunProgram("companion-service", [argc, argv] {
    companion::Arguments arguments;
    if (!companion::ParseArguments(argc, argv, arguments)) return 0;
    std::atomic<bool> endAsked = false;
    startup::Interruptible interruptible(kEndedAtOnce);
    interruptible.Cancels([&endAsked] { endAsked = true; });
    startup::PutInForce(arguments);
    Serve(arguments, endAsked);
    return 0;
  });
}
