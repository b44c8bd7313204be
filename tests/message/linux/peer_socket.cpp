#include "tests/message/peer_socket.h"

#include <asio/buffer.hpp>
#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <asio/write.hpp>

struct PeerSocket::System {
  asio::io_context context;
  asio::local::stream_protocol::socket socket{context};
};

PeerSocket::PeerSocket(const std::filesystem::path& socket) : system(std::make_unique<System>()) {
  system->socket.connect(socket.string());
}

PeerSocket::~PeerSocket() = default;

void PeerSocket::Write(const std::vector<std::uint8_t>& bytes) {
  asio::write(system->socket, asio::buffer(bytes));
}

std::vector<std::uint8_t> PeerSocket::Read() {
  std::vector<std::uint8_t> chunk(1 << 16);
  asio::error_code error;
  chunk.resize(system->socket.read_some(asio::buffer(chunk), error));
  return chunk;
}
