#include <sys/stat.h>
#include <unistd.h>

#include <asio/local/stream_protocol.hpp>
#include <cerrno>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/linux/file_lock.h"
#include "platform/message/linux/socket_stream.h"
#include "platform/message/local_listener.h"

namespace message {
namespace {

namespace fs = std::filesystem;
using Protocol = asio::local::stream_protocol;

std::runtime_error NobodyCanServe(const fs::path& socket, const std::string& reason) {
  return std::runtime_error(common::PathText(socket) + ": no broker can serve there: " + reason);
}

// Which file stands at a path: one made later in its place is another.
struct FileIdentity {
  dev_t device = 0;
  ino_t number = 0;

  bool operator==(const FileIdentity&) const = default;
};

std::optional<FileIdentity> IdentityOf(const fs::path& file) {
  struct stat status {};
  if (lstat(file.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{status.st_dev, status.st_ino};
}

std::error_code LastError() {
  return {errno, std::generic_category()};
}

// Whether a program takes connections there. Throws for what no broker may take away.
bool IsListenedOn(asio::io_context& context, const fs::path& socket) {
  struct stat status {};
  if (lstat(socket.c_str(), &status) != 0) {
    if (errno == ENOENT) return false;
    throw NobodyCanServe(socket, LastError().message());
  }
  if (!S_ISSOCK(status.st_mode)) throw NobodyCanServe(socket, "what is there is not a socket");
  if (status.st_uid != geteuid())
    throw NobodyCanServe(socket, "the socket belongs to another user");
  Protocol::socket asking(context);
  const std::error_code error = ConnectAtOnce(asking, socket);
  switch (error.value()) {
    case ECONNREFUSED:
    case ENOENT:
      return false;
    case 0:
    case EAGAIN:      // it is slow to take them
    case EPROTOTYPE:  // it takes messages without connections
      return true;
    default:
      throw NobodyCanServe(socket, error.message());
  }
}

FileLock TakeLock(asio::io_context& context, const fs::path& socket) {
  const auto noBroker = [&socket] {
    return NobodyCanServe(socket, "another program listens there");
  };
  fs::path file = socket;
  file += ".lock";
  // A broker locks before it listens: who listens without a lock file is none, and gets none.
  if (IsListenedOn(context, socket) && !IdentityOf(file)) throw noBroker();
  auto lock = FileLock::TryTake(file);
  if (!lock) throw BrokerRuns(common::PathText(socket) + ": another broker serves there");
  if (IsListenedOn(context, socket)) throw noBroker();
  return std::move(*lock);
}

// Who may connect is settled before the socket listens.
Protocol::acceptor Listen(asio::io_context& context, const fs::path& socket) {
  std::error_code error;
  Protocol::acceptor acceptor(context);
  acceptor.open(Protocol(), error);
  if (!error && unlink(socket.c_str()) != 0 && errno != ENOENT) error = LastError();
  if (!error) acceptor.bind(EndpointOf(socket), error);
  if (!error && chmod(socket.c_str(), S_IRUSR | S_IWUSR) != 0) error = LastError();
  if (!error) acceptor.listen(Protocol::acceptor::max_listen_connections, error);
  if (error) throw NobodyCanServe(socket, error.message());
  return acceptor;
}

// The lock is held as long as the socket file is this process's.
class SocketListener final : public LocalListener {
 public:
  SocketListener(asio::io_context& context, const fs::path& path)
      : socket(LocalAddress(path)),
        lock(TakeLock(context, path)),
        acceptor(Listen(context, path)),
        made(IdentityOf(path)) {}
  SocketListener(const SocketListener&) = delete;
  SocketListener& operator=(const SocketListener&) = delete;
  ~SocketListener() override { RemoveSocket(); }

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
    RemoveSocket();  // first: an open socket keeps its file's number from being given again
    std::error_code ignored;
    acceptor.close(ignored);
  }

 private:
  void RemoveSocket() {
    if (made && IdentityOf(socket) == made) unlink(socket.c_str());
    made.reset();
  }

  const fs::path socket;
  const FileLock lock;
  Protocol::acceptor acceptor;
  std::optional<FileIdentity> made;
};

}  // namespace

std::unique_ptr<LocalListener> ListenLocally(asio::io_context& context, const fs::path& socket) {
  return std::make_unique<SocketListener>(context, socket);
}

}  // namespace message
