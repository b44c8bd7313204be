#include "platform/os/own_folder.h"

#include "platform/os/file_error.h"

namespace os {

namespace fs = std::filesystem;

// The folder that a user gets by default lies in the profile, where nobody else may write; one that
// was given is taken as it is.

void MakeOwnFolder(const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (fs::is_regular_file(folder)) throw FileError(folder, "is not a folder");
  if (error) throw FileError(folder, "the folder cannot be made: " + error.message());
}

fs::path FollowOwnLinks(const fs::path& file) {
  std::error_code error;
  const fs::path target = fs::is_symlink(file, error) ? fs::canonical(file, error) : file;
  return error ? file : target;
}

}  // namespace os
