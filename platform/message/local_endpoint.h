#pragma once

#include <asio/local/stream_protocol.hpp>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "platform/os/path_text.h"

namespace message {

/// The address of a socket file. Throws std::runtime_error naming a path that is too long for one.
inline asio::local::stream_protocol::endpoint EndpointOf(const std::filesystem::path& socket) {
  try {
    return {socket.string()};
  } catch (const std::system_error&) {
    throw std::runtime_error(os::PathText(socket) + ": the path is too long for a socket");
  }
}

}  // namespace message
