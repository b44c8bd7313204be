// A process at the other end of the channel: "peer_program broker SOCKET" serves, "peer_program
// echo SOCKET MODULE" sends every message back to where it came from and floods the group 0x5000,
// "peer_program burst SOCKET MODULE" posts 300 messages of 8 KiB to 0x390000 and ends.

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/interrupt.h"

namespace {

std::atomic<bool> ended = false;

void End() {
  ended = true;
}

int Burst(const std::filesystem::path& socket, std::uint32_t module) {
  while (!message::ConnectToBroker(socket)) message::DisconnectFromBroker();
  CIPCMessageClient client(module, false);
  const std::vector<std::uint8_t> body(8192);
  for (std::uint32_t i = 0; i < 300; ++i) {
    tagIPC_MESSAGE_ITEM item;
    item.target = 0x390000;
    item.messageId = i;
    item.data = body.data();
    item.dataLength = static_cast<std::uint32_t>(body.size());
    client.PostIPCMessage(item);
  }
  message::DisconnectFromBroker();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::filesystem::path socket = common::TextPath(argv[2]);
  const std::uint32_t module = argc > 3 ? std::strtoul(argv[3], nullptr, 0) : 1;
  if (std::string_view(argv[1]) == "burst") return Burst(socket, module);
  os::OnInterrupt(&End, 1);
  std::unique_ptr<message::Broker> broker;
  const bool echoes = std::string_view(argv[1]) == "echo";
  if (echoes)
    message::ConnectToBroker(socket);
  else
    broker = std::make_unique<message::Broker>(socket);

  CIPCMessageClient client(module, false);
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
