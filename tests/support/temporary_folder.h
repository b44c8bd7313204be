#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

// A new empty folder that goes away with the object.
class TemporaryFolder {
 public:
  TemporaryFolder()
      : path(std::filesystem::temp_directory_path() /
             ("sysdiagnose-" + std::to_string(std::random_device()()))) {
    std::filesystem::create_directories(path);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  // Not by remove_all: on Windows it would wait for ever for a file that is still open.
  ~TemporaryFolder() {
    namespace fs = std::filesystem;
    std::vector<fs::path> entries = {path};
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(path, ignored))
      entries.push_back(entry.path());
    for (; !entries.empty(); entries.pop_back()) fs::remove(entries.back(), ignored);
  }

  const std::filesystem::path path;
};

inline void WriteText(const std::filesystem::path& file, std::string_view text) {
  std::filesystem::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << text;
}

inline std::string ReadText(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}
