#include "platform/os/system_paths.h"

#include <unistd.h>

#include <cstdlib>

#include "platform/os/linux/user_home.h"

namespace os {

namespace fs = std::filesystem;

fs::path ExecutableFile() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

fs::path UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return fs::path(data) / "sysdiagnose";
  const char* named = std::getenv("HOME");
  const fs::path home = named != nullptr && *named == '/' ? named : HomeInUserDatabase(geteuid());
  return home.empty() ? home : home / ".local/share/sysdiagnose";
}

fs::path SystemRoot() {
  return "/";
}

}  // namespace os
