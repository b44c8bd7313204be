#include "platform/os/system_paths.h"

#include <cstdlib>

namespace os {

namespace fs = std::filesystem;

fs::path ExecutableFile() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return fs::path(data) / "sysdiagnose";
  const char* home = std::getenv("HOME");
  const fs::path user = home != nullptr && *home != '\0' ? home : fs::temp_directory_path();
  return user / ".local/share/sysdiagnose";
}

fs::path SystemRoot() {
  return "/";
}

}  // namespace os
