#pragma once

#include <asio/windows/stream_handle.hpp>
#include <optional>

#include "platform/message/local_stream.h"

namespace message {

/// A connected named pipe of bytes.
class PipeStream final : public LocalStream {
 public:
  explicit PipeStream(asio::windows::stream_handle connected);

  void AsyncRead(std::span<std::uint8_t> buffer, OnRead handler) override;
  std::size_t TryWrite(std::span<const std::uint8_t> bytes) override;
  void AsyncWrite(std::span<const std::uint8_t> bytes, OnWritten handler) override;
  void Shutdown() override;
  void Close() override;

 private:
  std::size_t Available();

  asio::windows::stream_handle pipe;
  bool shut = false;
  std::optional<std::size_t> unread;  // bytes still to be read after the shutdown
};

}  // namespace message
