#pragma once

#include <filesystem>

/// While it lives, this process and those that it starts put their temporary files there.
class TemporaryFilesIn {
 public:
  explicit TemporaryFilesIn(const std::filesystem::path& folder);
  TemporaryFilesIn(const TemporaryFilesIn&) = delete;
  TemporaryFilesIn& operator=(const TemporaryFilesIn&) = delete;
  ~TemporaryFilesIn();

 private:
  const std::filesystem::path before;
};
