#pragma once

#include <asio/io_context.hpp>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <system_error>

namespace message {

/// One end of a connection between two processes of this machine: bytes go both ways.
///
/// Handlers are called by whoever runs the context, never inside the call that takes them. The
/// owner keeps calls from running at once, and reads and closes as whoever runs the context only.
class LocalStream {
 public:
  using OnRead = std::function<void(const std::error_code& error, std::size_t bytes)>;
  using OnWritten = std::function<void(const std::error_code& error)>;

  virtual ~LocalStream() = default;

  /// Reads what there is, a byte at least. One at a time. An error is the end of the stream.
  virtual void AsyncRead(std::span<std::uint8_t> buffer, OnRead handler) = 0;

  /// How many of the bytes, from the first on, the system takes at once. Not while AsyncWrite is
  /// under way.
  virtual std::size_t TryWrite(std::span<const std::uint8_t> bytes) = 0;

  /// Writes all the bytes, which the handler keeps alive. One at a time.
  virtual void AsyncWrite(std::span<const std::uint8_t> bytes, OnWritten handler) = 0;

  /// Ends the stream: a write under way fails, a read does when what had already come is read.
  /// What was written stays for the other side to read.
  virtual void Shutdown() = 0;

  /// After Shutdown, when no read is under way.
  virtual void Close() = 0;
};

/// How many threads a context of streams is told of: one runs it, another may still be busy with
/// what it took from it.
extern const int kContextThreads;

/// What the system calls the socket at this path. Throws std::runtime_error naming a path where no
/// socket can be.
std::filesystem::path LocalAddress(const std::filesystem::path& socket);

/// The connection to the process of this user that listens at the address; null, and why, when none
/// takes it at this moment. Does not wait.
std::unique_ptr<LocalStream> ConnectLocally(asio::io_context& context,
                                            const std::filesystem::path& address,
                                            std::string& whyNot);

}  // namespace message
