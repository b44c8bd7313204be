#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/os/paths.h"
#include "tests/support/temporary_folder.h"

/// A folder of system files that the machine's readers take for the system's own.
class FakeSystem {
 public:
  FakeSystem() { os::SetSystemRoot(folder.path); }
  ~FakeSystem() { os::SetSystemRoot("/"); }
  FakeSystem(const FakeSystem&) = delete;
  FakeSystem& operator=(const FakeSystem&) = delete;

  void Write(const std::string& path, std::string_view text) const {
    WriteText(os::SystemPath(path), text);
  }

  std::string Text(const std::string& path) const { return ReadText(os::SystemPath(path)); }

  const std::filesystem::path& Root() const { return folder.path; }

 private:
  TemporaryFolder folder;
};
