#include "bench/message_partner.h"

#include <array>
#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <asio/write.hpp>
#include <atomic>
#include <chrono>
#include <deque>
#include <thread>
#include <vector>

#include "platform/message/broker_connection.h"
#include "platform/message/frame.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/interrupt.h"

namespace {

using Socket = asio::local::stream_protocol::socket;

std::atomic<bool> ended = false;

// One of many clients on a single thread: answers each message to its sender.
class AnsweringClient {
 public:
  AnsweringClient(asio::io_context& context, const std::string& path, std::uint32_t id)
      : socket(context), moduleId(id) {
    socket.connect(path);
    asio::write(socket, asio::buffer(message::EncodeHello()));
    asio::write(socket,
                asio::buffer(message::EncodeIds(message::FrameKind::Announce, {moduleId, 0x4000})));
    Read();
  }

 private:
  void Read() {
    socket.async_read_some(asio::buffer(chunk), [this](const auto& error, std::size_t n) {
      if (error) return;
      reader.Feed(std::span(chunk).first(n));
      while (auto frame = reader.Next()) {
        frame->target = frame->source;
        frame->source = moduleId;
        asio::write(socket, asio::buffer(message::EncodeFrame(*frame)));
      }
      Read();
    });
  }

  Socket socket;
  std::uint32_t moduleId;
  message::FrameReader reader;
  std::array<std::uint8_t, 4096> chunk;
};

}  // namespace

void EchoMessages(const std::string& socket) {
  os::OnInterrupt([] { ended = true; }, 1);
  message::ConnectToBroker(socket);
  {
    CIPCMessageClient client(0x390000, false);
    client.RegisterMessageCallbackAll([&client](const tagIPC_MESSAGE_ITEM& item) {
      tagIPC_MESSAGE_ITEM answer = item;
      answer.target = item.source;
      answer.source = tagIPC_MESSAGE_ITEM().source;
      client.PostIPCMessage(answer);
    });
    while (!ended) std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  message::DisconnectFromBroker();
}

void EchoBytes(const std::string& path) {
  asio::io_context context;
  Socket socket(context);
  socket.connect(path);
  std::array<std::uint8_t, 4096> chunk;
  asio::error_code error;
  while (const std::size_t n = socket.read_some(asio::buffer(chunk), error))
    asio::write(socket, asio::buffer(chunk, n));
}

void ServeClients(const std::string& socket, int count) {
  asio::io_context context;
  std::deque<AnsweringClient> clients;
  for (int i = 0; i < count; ++i)
    clients.emplace_back(context, socket, 0x400000 + static_cast<std::uint32_t>(i));
  context.run();
}
