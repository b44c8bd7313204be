#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "platform/os/export.h"

namespace message {

/// Thrown when another broker serves at the same socket; its text names the socket.
class UTIL_API BrokerRuns : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Relays messages between the processes of one user. Its own process takes part without a
/// connection; the others use ConnectToBroker.
///
/// Serves on the library's threads until it is destroyed, which must not happen in a handler. A
/// process whose bytes are no frames, or that lets more than 8 MiB wait, loses its connection; one
/// log line says so.
class UTIL_API Broker {
 public:
  /// Serves at this socket, which only the user of this process may use: on Linux a file, with
  /// `socket`.lock beside it, where nothing is or a socket of this user that nobody listens on; on
  /// Windows the pipe that docs/messages.md tells for a path. Throws BrokerRuns; std::runtime_error
  /// naming the path and the reason when it cannot, and nothing has been touched then;
  /// std::logic_error when this process has a broker or a connection already.
  explicit Broker(const std::filesystem::path& socket);
  Broker(const Broker&) = delete;
  Broker& operator=(const Broker&) = delete;
  /// Gives the other processes a second to read what waits for them.
  ~Broker();

 private:
  class Core;
  std::shared_ptr<Core> core;
};

}  // namespace message
