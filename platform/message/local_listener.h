#pragma once

#include <asio/io_context.hpp>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>

#include "platform/message/local_stream.h"

namespace message {

/// Where other processes of this user connect to. For whoever runs the context.
class LocalListener {
 public:
  /// On success the stream is null for a process of another user, which has been turned away.
  using OnAccepted = std::function<void(const std::error_code& error,
                                        std::unique_ptr<LocalStream> stream, int process)>;

  virtual ~LocalListener() = default;

  /// How many AsyncAccept are best under way: so many processes may connect at one moment.
  virtual int Places() const = 0;

  /// Waits for one process.
  virtual void AsyncAccept(OnAccepted handler) = 0;

  /// Lets nobody connect any more and fails what waits.
  virtual void Close() = 0;
};

/// Listens at this socket, which only the user of this process may use. Throws BrokerRuns when
/// another process of the user does so already; std::runtime_error naming a path where nobody can
/// listen.
std::unique_ptr<LocalListener> ListenLocally(asio::io_context& context,
                                             const std::filesystem::path& socket);

}  // namespace message
