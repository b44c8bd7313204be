#include "platform/os/paths.h"

#include <cstdlib>
#include <string>

#include "platform/os/module.h"

namespace os {
namespace {

namespace fs = std::filesystem;

// The readers take a path into a buffer of this many characters, its end included.
constexpr std::size_t kPathBuffer = 260;

struct Folders {
  fs::path configuration;
  fs::path data;
  fs::path systemRoot = "/";
};

Folders& Set() {
  static Folders& folders = *new Folders;
  return folders;
}

fs::path ExecutableFile() {
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error);
}

// The file of the utility library; that of the program when the library is linked into it.
fs::path LibraryFile() {
  const std::string file =
      ModuleFileOfAddress(reinterpret_cast<const void*>(&os::InstallationFolder));
  return file.empty() ? ExecutableFile() : fs::absolute(file);
}

fs::path ConfigurationRoot(const fs::path& module) {
  if (!Set().configuration.empty()) return Set().configuration;
  return module.string().size() < kPathBuffer ? module.parent_path() : fs::path();
}

fs::path UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return fs::path(data) / "sysdiagnose";
  const char* home = std::getenv("HOME");
  const fs::path user = home != nullptr && *home != '\0' ? home : fs::temp_directory_path();
  return user / ".local/share/sysdiagnose";
}

}  // namespace

fs::path ExecutableFolder() {
  return ExecutableFile().parent_path();
}

fs::path InstallationFolder() {
  return LibraryFile().parent_path();
}

fs::path ProgramConfigurationRoot() {
  return ConfigurationRoot(ExecutableFile());
}

fs::path LibraryConfigurationRoot() {
  return ConfigurationRoot(LibraryFile());
}

void SetConfigurationRoot(fs::path folder) {
  Set().configuration = std::move(folder);
}

fs::path DataFolder() {
  fs::path& folder = Set().data;
  const fs::path chosen = folder.empty() ? UserDataFolder() : folder;
  std::error_code error;
  fs::create_directories(chosen, error);
  return chosen;
}

void SetDataFolder(fs::path folder) {
  Set().data = std::move(folder);
}

fs::path SystemPath(const fs::path& absolute) {
  return Set().systemRoot / absolute.relative_path();
}

void SetSystemRoot(fs::path folder) {
  Set().systemRoot = std::move(folder);
}

fs::path OemVersionFile() {
  return SystemPath("/recovery/OEM/version.txt");
}

}  // namespace os
