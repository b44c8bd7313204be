#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "platform/os/paths.h"

/// A folder of system files that the machine's readers take for the system's own.
class FakeSystem {
 public:
  FakeSystem() {
    std::string name = (std::filesystem::temp_directory_path() / "system-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::filesystem::filesystem_error("mkdtemp", {});
    root = name;
    os::SetSystemRoot(root);
  }
  ~FakeSystem() {
    os::SetSystemRoot("/");
    std::error_code ignored;
    std::filesystem::remove_all(root, ignored);
  }
  FakeSystem(const FakeSystem&) = delete;
  FakeSystem& operator=(const FakeSystem&) = delete;

  void Write(const std::string& path, std::string_view text) const {
    const std::filesystem::path file = os::SystemPath(path);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
  }

  const std::filesystem::path& Root() const { return root; }

 private:
  std::filesystem::path root;
};
