#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

// The connection of another process to a broker, in the test's own hands. Every call waits.
class PeerSocket {
 public:
  // Throws std::system_error when nobody listens there.
  explicit PeerSocket(const std::filesystem::path& socket);
  ~PeerSocket();

  void Write(const std::vector<std::uint8_t>& bytes);

  // Some bytes; none at the end of the connection.
  std::vector<std::uint8_t> Read();

 private:
  struct System;
  std::unique_ptr<System> system;
};
