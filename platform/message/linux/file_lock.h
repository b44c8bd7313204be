#pragma once

#include <filesystem>
#include <optional>

namespace message {

/// A lock that one process at a time holds, until the object or the process ends. The lock's file
/// is created and stays.
class FileLock {
 public:
  FileLock() = default;
  FileLock(FileLock&& other) noexcept;
  FileLock& operator=(FileLock&& other) noexcept;
  ~FileLock();

  /// Nothing when another holds it. Throws std::runtime_error naming a file that cannot be locked
  /// or is none of this user's.
  static std::optional<FileLock> TryTake(const std::filesystem::path& file);

 private:
  explicit FileLock(int opened) : descriptor(opened) {}

  int descriptor = -1;
};

}  // namespace message
