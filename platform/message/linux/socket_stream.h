#pragma once

#include <asio/local/stream_protocol.hpp>
#include <filesystem>
#include <optional>

#include "platform/message/local_stream.h"

namespace message {

/// The address of a socket file. Throws std::runtime_error naming a path that is too long for one.
asio::local::stream_protocol::endpoint EndpointOf(const std::filesystem::path& socket);

/// Opens the socket and connects it to who listens there, without waiting: one that does not accept
/// takes nobody.
std::error_code ConnectAtOnce(asio::local::stream_protocol::socket& connecting,
                              const std::filesystem::path& socket);

/// The process at the other end of a connected socket if it belongs to the user of this process;
/// else nothing.
std::optional<int> ProcessOfOwnPeer(int socket);

/// A connected Unix socket.
class SocketStream final : public LocalStream {
 public:
  explicit SocketStream(asio::local::stream_protocol::socket connected);

  void AsyncRead(std::span<std::uint8_t> buffer, OnRead handler) override;
  std::size_t TryWrite(std::span<const std::uint8_t> bytes) override;
  void AsyncWrite(std::span<const std::uint8_t> bytes, OnWritten handler) override;
  void Shutdown() override;
  void Close() override;

 private:
  asio::local::stream_protocol::socket socket;
};

}  // namespace message
