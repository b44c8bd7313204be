#pragma once

#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <asio/read.hpp>
#include <asio/write.hpp>
#include <filesystem>
#include <optional>
#include <vector>

#include "platform/message/frame.h"

// The socket of another process, in the test's own hands.
class RawPeer {
 public:
  explicit RawPeer(const std::filesystem::path& socketFile) { socket.connect(socketFile.string()); }

  // One that has said hello and is reached by these ids.
  RawPeer(const std::filesystem::path& socketFile, const std::vector<std::uint32_t>& ids)
      : RawPeer(socketFile) {
    Write(message::EncodeHello());
    Write(message::EncodeIds(message::FrameKind::Announce, ids));
  }

  void Write(const std::vector<std::uint8_t>& bytes) { asio::write(socket, asio::buffer(bytes)); }

  void Post(std::uint32_t target, std::uint32_t source, std::uint32_t messageId) {
    Write(message::EncodeFrame({message::FrameKind::Message, target, source, messageId, 0, {}}));
  }

  // The next frame; nothing at the end of the connection.
  std::optional<message::Frame> Read() {
    for (;;) {
      if (auto frame = reader.Next()) return frame;
      std::vector<std::uint8_t> chunk(1 << 16);
      asio::error_code error;
      chunk.resize(socket.read_some(asio::buffer(chunk), error));
      if (error) return std::nullopt;
      reader.Feed(chunk);
    }
  }

 private:
  asio::io_context context;
  asio::local::stream_protocol::socket socket{context};
  message::FrameReader reader;
};
