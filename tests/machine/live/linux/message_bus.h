#pragma once

#include <sdbus-c++/sdbus-c++.h>

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/os/child_process.h"

/// A message bus of its own, at a socket.
class MessageBus {
 public:
  explicit MessageBus(const std::filesystem::path& socket)
      : address("unix:path=" + socket.string()) {
    std::filesystem::create_directories(socket.parent_path());
    daemon = std::make_unique<os::ChildProcess>(std::vector<std::string>{
        "dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + address});
  }

  const std::string& Address() const { return address; }

  /// Waits until it takes connections.
  std::unique_ptr<sdbus::IConnection> Connect(const std::string& service) const {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    for (;;) {
      try {
        auto connection = sdbus::createSessionBusConnectionWithAddress(address);
        connection->requestName(service);
        return connection;
      } catch (const sdbus::Error&) {
        if (std::chrono::steady_clock::now() >= deadline) throw;
        std::this_thread::yield();
      }
    }
  }

 private:
  std::string address;
  std::unique_ptr<os::ChildProcess> daemon;
};
