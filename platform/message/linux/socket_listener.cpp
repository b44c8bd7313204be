#include <sys/stat.h>

#include <asio/local/stream_protocol.hpp>
#include <stdexcept>
#include <utility>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/linux/file_lock.h"
#include "platform/message/linux/socket_stream.h"
#include "platform/message/local_listener.h"

namespace message {
namespace {

using Protocol = asio::local::stream_protocol;

FileLock TakeLock(const std::filesystem::path& socket) {
  std::filesystem::path file = socket;
  auto lock = FileLock::TryTake(file += ".lock");
  if (!lock) throw BrokerRuns(common::PathText(socket) + ": another broker serves there");
  return std::move(*lock);
}

// Who may connect is settled before the socket listens.
Protocol::acceptor Listen(asio::io_context& context, const std::filesystem::path& socket) {
  std::error_code error;
  std::filesystem::remove(socket, error);
  Protocol::acceptor acceptor(context);
  acceptor.open();
  acceptor.bind(EndpointOf(socket), error);
  if (!error && chmod(socket.c_str(), S_IRUSR | S_IWUSR) != 0)
    error = std::make_error_code(std::errc::io_error);
  if (!error) acceptor.listen(Protocol::acceptor::max_listen_connections, error);
  if (error)
    throw std::runtime_error(common::PathText(socket) +
                             ": no broker can serve there: " + error.message());
  return acceptor;
}

// The lock is held as long as the socket file is this process's.
class SocketListener final : public LocalListener {
 public:
  SocketListener(asio::io_context& context, const std::filesystem::path& path)
      : socket(path), lock(TakeLock(path)), acceptor(Listen(context, path)) {}
  SocketListener(const SocketListener&) = delete;
  SocketListener& operator=(const SocketListener&) = delete;
  ~SocketListener() override {
    std::error_code ignored;
    std::filesystem::remove(socket, ignored);
  }

  int Places() const override { return 1; }  // the system queues who comes meanwhile

  void AsyncAccept(OnAccepted handler) override {
    acceptor.async_accept(
        [handler = std::move(handler)](const asio::error_code& error, Protocol::socket accepted) {
          if (error) return handler(error, nullptr, 0);
          const auto process = ProcessOfOwnPeer(accepted.native_handle());
          if (!process) return handler({}, nullptr, 0);
          handler({}, std::make_unique<SocketStream>(std::move(accepted)), *process);
        });
  }

  void Close() override {
    std::error_code ignored;
    acceptor.close(ignored);
  }

 private:
  const std::filesystem::path socket;
  const FileLock lock;
  Protocol::acceptor acceptor;
};

}  // namespace

std::unique_ptr<LocalListener> ListenLocally(asio::io_context& context,
                                             const std::filesystem::path& socket) {
  return std::make_unique<SocketListener>(context, socket);
}

}  // namespace message
