#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "platform/message/frame.h"
#include "tests/message/peer_socket.h"

// Another process that speaks frames, in the test's own hands.
class RawPeer {
 public:
  explicit RawPeer(const std::filesystem::path& socketFile) : socket(socketFile) {}

  // One that has said hello and is reached by these ids.
  RawPeer(const std::filesystem::path& socketFile, const std::vector<std::uint32_t>& ids)
      : RawPeer(socketFile) {
    Write(message::EncodeHello());
    Write(message::EncodeIds(message::FrameKind::Announce, ids));
  }

  void Write(const std::vector<std::uint8_t>& bytes) { socket.Write(bytes); }

  void Post(std::uint32_t target, std::uint32_t source, std::uint32_t messageId,
            const std::vector<std::uint8_t>& body = {}) {
    Write(message::EncodeFrame({message::FrameKind::Message, target, source, messageId, 0, body}));
  }

  // The next frame; nothing at the end of the connection.
  std::optional<message::Frame> Read() {
    for (;;) {
      if (auto frame = reader.Next()) return frame;
      const std::vector<std::uint8_t> chunk = socket.Read();
      if (chunk.empty()) return std::nullopt;
      reader.Feed(chunk);
    }
  }

 private:
  PeerSocket socket;
  message::FrameReader reader;
};
