#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

namespace os {

/// A plain file open for appending, created for the user alone if missing. Others may go on
/// reading, appending to and renaming it. One thread; everything throws std::runtime_error "<path>:
/// <reason>".
class AppendedFile {
 public:
  /// Refuses a link and all that is no plain file, and waits for none of them.
  explicit AppendedFile(const std::filesystem::path& file);
  AppendedFile(const AppendedFile&) = delete;
  AppendedFile& operator=(const AppendedFile&) = delete;
  ~AppendedFile();

  /// Keeps others from appending while it lives. A file system without locks does without.
  class Turn {
   public:
    explicit Turn(AppendedFile& appended) : file(appended) { file.Lock(); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() { file.Unlock(); }

   private:
    AppendedFile& file;
  };

  /// Whether the file has no name any more.
  bool IsRemoved() const;

  /// Whether the file still has the name that it was opened by.
  bool IsInPlace() const;

  std::uintmax_t Size() const;

  /// All of the bytes or, in a turn, none of them.
  void Write(std::string_view bytes);

 private:
  void Lock();
  void Unlock();

  struct System;

  const std::filesystem::path path;
  const std::unique_ptr<System> system;
};

}  // namespace os
