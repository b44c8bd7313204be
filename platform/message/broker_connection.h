#pragma once

#include <filesystem>

#include "platform/os/export.h"

namespace message {

/// Where the broker of this user serves: on Linux sysdiagnose.sock in the user's runtime folder, on
/// Windows a pipe named after the user and the session. Throws std::runtime_error when that folder
/// is not the user's own, or when the system does not tell who the user is.
UTIL_API std::filesystem::path DefaultBrokerSocket();

/// From now on the clients of this process exchange messages with other processes through the
/// broker at this socket. Tries once before it returns, and is true when the broker was reached;
/// whenever there is no connection it tries again, at intervals that grow to half a second.
/// Meanwhile messages are delivered inside the process only. For a program's start. Throws
/// std::runtime_error naming the path for one where no socket can be; std::logic_error when this
/// process has a broker or a connection already.
UTIL_API bool ConnectToBroker(const std::filesystem::path& socket);

/// Sends what waits, for a second at most, and ends the connection. For a program's end; without a
/// connection it does nothing. Not from a message handler.
UTIL_API void DisconnectFromBroker();

/// Whether the broker is reached at this moment. Any thread.
UTIL_API bool IsConnectedToBroker();

}  // namespace message
