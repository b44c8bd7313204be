#include "platform/message/linux/socket_stream.h"

#include <sys/socket.h>
#include <unistd.h>

#include <asio/buffer.hpp>
#include <asio/write.hpp>
#include <stdexcept>
#include <utility>

#include "common/path_text.h"

namespace message {

using Protocol = asio::local::stream_protocol;

// The threads take turns, so that Asio can go without what several at once need.
const int kContextThreads = 1;

Protocol::endpoint EndpointOf(const std::filesystem::path& socket) {
  try {
    return {socket.string()};
  } catch (const std::system_error&) {
    throw std::runtime_error(common::PathText(socket) + ": the path is too long for a socket");
  }
}

std::optional<int> ProcessOfOwnPeer(int socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return std::nullopt;
  if (peer.uid != geteuid()) return std::nullopt;
  return peer.pid;
}

SocketStream::SocketStream(Protocol::socket connected) : socket(std::move(connected)) {
  socket.non_blocking(true);
}

void SocketStream::AsyncRead(std::span<std::uint8_t> buffer, OnRead handler) {
  socket.async_read_some(asio::buffer(buffer.data(), buffer.size()), std::move(handler));
}

std::size_t SocketStream::TryWrite(std::span<const std::uint8_t> bytes) {
  asio::error_code error;  // that of a full socket is none, AsyncWrite meets any other again
  return socket.write_some(asio::buffer(bytes.data(), bytes.size()), error);
}

void SocketStream::AsyncWrite(std::span<const std::uint8_t> bytes, OnWritten handler) {
  asio::async_write(socket, asio::buffer(bytes.data(), bytes.size()),
                    [handler = std::move(handler)](const asio::error_code& error, std::size_t) {
                      handler(error);
                    });
}

void SocketStream::Shutdown() {
  asio::error_code ignored;
  socket.shutdown(Protocol::socket::shutdown_both, ignored);
}

void SocketStream::Close() {
  asio::error_code ignored;
  socket.close(ignored);
}

std::filesystem::path LocalAddress(const std::filesystem::path& socket) {
  EndpointOf(socket);
  return socket;
}

std::error_code ConnectAtOnce(Protocol::socket& connecting, const std::filesystem::path& socket) {
  asio::error_code error;
  connecting.open(Protocol(), error);
  if (!error) connecting.non_blocking(true, error);
  if (!error) connecting.connect(EndpointOf(socket), error);
  if (error == asio::error::no_buffer_space) error = asio::error::try_again;  // Asio renames it
  return error;
}

std::unique_ptr<LocalStream> ConnectLocally(asio::io_context& context,
                                            const std::filesystem::path& address,
                                            std::string& whyNot) {
  Protocol::socket connecting(context);
  if (const std::error_code error = ConnectAtOnce(connecting, address))
    whyNot = error.message();
  else if (!ProcessOfOwnPeer(connecting.native_handle()))
    whyNot = "it belongs to another user";
  else
    return std::make_unique<SocketStream>(std::move(connecting));
  return nullptr;
}

}  // namespace message
