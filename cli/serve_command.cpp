#include <atomic>
#include <chrono>
#include <cstdio>

#include "cli/commands.h"
#include "cli/interruptible.h"
#include "cli/json_line.h"
#include "cli/output.h"
#include "cli/texts.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/os/clock.h"

namespace cli {

std::filesystem::path BrokerSocket(const Arguments& arguments) {
  return arguments.socket.empty() ? message::DefaultBrokerSocket() : arguments.socket;
}

int RunServe(const Arguments& arguments) {
  const std::filesystem::path socket = BrokerSocket(arguments);
  std::atomic<bool> endAsked = false;
  Interruptible interruptible;
  interruptible.Cancels([&endAsked] { endAsked = true; });
  const message::Broker broker(socket);
  if (arguments.json) {
    JsonLine("serving").Add("socket", common::PathText(socket));
  } else {
    std::puts(Line(L"SERVING", {common::Utf8ToWide(common::PathText(socket))}).c_str());
    FlushOutput();
  }
  while (!endAsked) os::CurrentClock().Sleep(std::chrono::milliseconds(50));
  return kAllNormal;
}

}  // namespace cli
