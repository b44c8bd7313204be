#pragma once

#include <filesystem>
#include <optional>

#include "platform/os/export.h"

// What a socket between processes of one user needs of the system.
namespace os {

/// The folder for the sockets of this user, which nobody else can enter: the session's runtime
/// folder, else one made in the temporary folder. Throws std::runtime_error when the latter is
/// there but is not the user's own.
UTIL_API std::filesystem::path RuntimeFolder();

/// The id of the process at the other end of a connected local socket if it belongs to the user of
/// this process; else nothing.
std::optional<int> ProcessOfOwnPeer(int socket);

/// Lets only the owner use the file. False when that failed.
bool MakePrivate(const std::filesystem::path& file);

/// A lock that one process at a time holds, until the object or the process ends. The lock's file
/// is created and stays.
class FileLock {
 public:
  FileLock() = default;
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

  /// Nothing when another holds it. Throws std::runtime_error naming a file that cannot be opened.
  static std::optional<FileLock> TryTake(const std::filesystem::path& file);

 private:
  explicit FileLock(int opened) : descriptor(opened) {}

  int descriptor = -1;
};

}  // namespace os
