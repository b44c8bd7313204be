#pragma once

#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

struct archive;

namespace companion {

/// A new tar.gz archive. One thread. Everything throws std::runtime_error naming the file when it
/// cannot be written.
class LogArchive {
 public:
  explicit LogArchive(std::filesystem::path file);
  LogArchive(const LogArchive&) = delete;
  LogArchive& operator=(const LogArchive&) = delete;
  ~LogArchive();

  /// A file of this name in the archive, folders parted by "/".
  void Add(const std::string& name, const std::string& content);

  /// Writes what is missing; without it the archive is not whole.
  void Finish();

 private:
  void Check(int result) const;

  const std::filesystem::path path;
  const std::time_t time;  // of every file in it
  std::ofstream stream;
  const std::unique_ptr<archive, int (*)(archive*)> packed;
};

}  // namespace companion
