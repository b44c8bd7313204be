#include "tests/message/peer_socket.h"

#include <system_error>

#include "platform/message/local_stream.h"
#include "platform/os/windows/handle.h"

namespace {

[[noreturn]] void ThrowLastError() {
  throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
}

// Waits for its turn at a pipe that others connect to at this moment.
os::Handle Open(const std::filesystem::path& name) {
  for (;;) {
    os::Handle pipe(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                OPEN_EXISTING, 0, nullptr));
    if (pipe) return pipe;
    if (GetLastError() != ERROR_PIPE_BUSY) ThrowLastError();
    WaitNamedPipeW(name.c_str(), NMPWAIT_WAIT_FOREVER);
  }
}

}  // namespace

struct PeerSocket::System {
  os::Handle pipe;
};

PeerSocket::PeerSocket(const std::filesystem::path& socket)
    : system(std::make_unique<System>(Open(message::LocalAddress(socket)))) {}

PeerSocket::~PeerSocket() = default;

void PeerSocket::Write(const std::vector<std::uint8_t>& bytes) {
  DWORD written = 0;
  if (WriteFile(system->pipe.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                nullptr) == 0)
    ThrowLastError();
}

std::vector<std::uint8_t> PeerSocket::Read() {
  std::vector<std::uint8_t> chunk(1 << 16);
  DWORD length = 0;
  ReadFile(system->pipe.Get(), chunk.data(), static_cast<DWORD>(chunk.size()), &length, nullptr);
  chunk.resize(length);
  return chunk;
}
