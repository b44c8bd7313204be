#include "platform/os/paths.h"

#include <stdexcept>
#include <string>

#include "common/path_text.h"
#include "platform/os/module.h"
#include "platform/os/own_folder.h"
#include "platform/os/process_state.h"
#include "platform/os/system_paths.h"

namespace os {
namespace {

namespace fs = std::filesystem;

// The readers take a path into a buffer of this many characters, its end included.
constexpr std::size_t kPathBuffer = 260;

// The file of the utility library; that of the program when the library is linked into it.
fs::path LibraryFile() {
  const std::string file = ModuleFileOfAddress(State().home);
  return file.empty() ? ExecutableFile() : fs::absolute(common::TextPath(file));
}

fs::path ConfigurationRoot(const fs::path& module) {
  if (!State().configuration.empty()) return State().configuration;
  return module.native().size() < kPathBuffer ? module.parent_path() : fs::path();
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
  State().configuration = std::move(folder);
}

fs::path DataFolder() {
  const fs::path& set = State().data;
  const fs::path folder = set.empty() ? UserDataFolder() : set;
  if (folder.empty())
    throw std::runtime_error(
        "this user has no home folder to keep data in; name a folder with --data-dir");
  MakeOwnFolder(folder);
  return folder;
}

void SetDataFolder(fs::path folder) {
  State().data = std::move(folder);
}

fs::path SystemPath(const fs::path& absolute) {
  const fs::path root = IsSystemRootSet() ? State().systemRoot : SystemRoot();
  return root / absolute.relative_path();
}

void SetSystemRoot(fs::path folder) {
  State().systemRoot = std::move(folder);
}

bool IsSystemRootSet() {
  return !State().systemRoot.empty();
}

void SetMachineDescribed(bool isDescribed) {
  State().isMachineDescribed = isDescribed;
}

fs::path OemVersionFile() {
  if (State().isMachineDescribed && !IsSystemRootSet()) return {};
  return SystemPath("/recovery/OEM/version.txt").make_preferred();
}

}  // namespace os
