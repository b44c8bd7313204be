#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace manager {

/// The lines of a script or of standard input, read on a thread of their own, which is left behind
/// where it waits for input. One thread takes them.
class CommandSource {
 public:
  /// An empty path stands for standard input. Throws std::runtime_error naming a file that cannot
  /// be read.
  explicit CommandSource(const std::filesystem::path& script);
  CommandSource(const CommandSource&) = delete;
  CommandSource& operator=(const CommandSource&) = delete;
  ~CommandSource();

  /// Waits for the next line; nothing behind the last one, and when it is stopped meanwhile.
  std::optional<std::string> Next(const std::atomic<bool>& stopped);

 private:
  struct State;
  std::shared_ptr<State> state;
};

}  // namespace manager
