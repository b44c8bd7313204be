#include <atomic>
#include <chrono>
#include <cstdio>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/os/clock.h"
#include "platform/os/interrupt.h"
#include "platform/os/path_text.h"

namespace cli {
namespace {

std::atomic<bool> endAsked = false;

void AskToEnd() {
  endAsked = true;
}

}  // namespace

std::filesystem::path BrokerSocket(const Arguments& arguments) {
  return arguments.socket.empty() ? message::DefaultBrokerSocket() : arguments.socket;
}

int RunServe(const Arguments& arguments) {
  const std::filesystem::path socket = BrokerSocket(arguments);
  os::OnInterrupt(&AskToEnd, kCancelled);
  const message::Broker broker(socket);
  if (arguments.json) {
    JsonLine("serving").Add("socket", os::PathText(socket));
  } else {
    std::printf("Relaying messages at %s until Ctrl-C.\n", os::PathText(socket).c_str());
    std::fflush(stdout);
  }
  while (!endAsked) os::CurrentClock().Sleep(std::chrono::milliseconds(50));
  return kAllNormal;
}

}  // namespace cli
