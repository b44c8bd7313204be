// A process at the other end of the channel: "peer_program broker SOCKET" serves, "peer_program
// echo SOCKET MODULE" sends every message back to where it came from and floods the group 0x5000.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <thread>

#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/interrupt.h"

namespace {

std::atomic<bool> ended = false;

void End() {
  ended = true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  os::OnInterrupt(&End, 1);
  std::unique_ptr<message::Broker> broker;
  const bool echoes = std::string_view(argv[1]) == "echo";
  if (echoes)
    message::ConnectToBroker(argv[2]);
  else
    broker = std::make_unique<message::Broker>(argv[2]);

  CIPCMessageClient client(argc > 3 ? std::strtoul(argv[3], nullptr, 0) : 1, false);
  client.RegisterMessageCallbackAll([&](const tagIPC_MESSAGE_ITEM& item) {
    tagIPC_MESSAGE_ITEM answer = item;
    answer.target = item.source;
    answer.source = tagIPC_MESSAGE_ITEM().source;
    client.PostIPCMessage(answer);
  });
  for (std::uint32_t i = 0; !ended; ++i) {
    tagIPC_MESSAGE_ITEM flood;
    flood.target = 0x5000;
    flood.messageId = i;
    if (echoes) client.PostIPCMessage(flood);
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  }
  message::DisconnectFromBroker();
}
