#pragma once

#include <filesystem>
#include <string>

namespace test {

/// A folder that goes, with all that lies in it, at the end of a test.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return path; }

  /// Writes a file, its folders included, and returns its path.
  std::filesystem::path Write(const std::filesystem::path& name, const std::string& content) const;

 private:
  std::filesystem::path path;
};

/// The whole content of a file; fails the test and gives nothing when it cannot be read.
std::string ReadWhole(const std::filesystem::path& file);

}  // namespace test
