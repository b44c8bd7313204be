#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <sstream>

namespace test {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder()
    : path(fs::temp_directory_path() / ("sysdiagnose-test-" + std::to_string(std::random_device()()))) {
  fs::create_directories(path);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code error;
  fs::remove_all(path, error);
}

fs::path TemporaryFolder::Write(const fs::path& name, const std::string& content) const {
  const fs::path file = path / name;
  fs::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary);
  stream << content;
  EXPECT_TRUE(stream.flush()) << file;
  return file;
}

std::string ReadWhole(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream content;
  content << stream.rdbuf();
  EXPECT_TRUE(stream.is_open()) << file;
  return content.str();
}

}  // namespace test
