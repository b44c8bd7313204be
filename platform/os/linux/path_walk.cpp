#include "platform/os/linux/path_walk.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/os/file_error.h"
#include "platform/os/folder_entries.h"

namespace os {
namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as many as the system itself follows

constexpr const char* kForeignLink = "is a link of another user";
constexpr const char* kOpenToOthers = "other users may change what lies there";

bool IsSticky(const fs::path& folder) {
  struct stat status {};
  return stat(folder.c_str(), &status) == 0 && (status.st_mode & S_ISVTX) != 0;
}

}  // namespace

fs::path PathWalk::To(const fs::path& path) {
  Go(fs::absolute(path));
  while (!names.empty()) {
    const fs::path name = names.front();
    names.pop_front();
    Step(name);
  }
  if (goal == Goal::Folder) VetEntries();
  return reached;
}

void PathWalk::Go(const fs::path& path) {
  if (path.is_absolute()) reached = path.root_path();
  const fs::path relative = path.relative_path();
  names.insert(names.begin(), relative.begin(), relative.end());
}

void PathWalk::Step(const fs::path& name) {
  if (name.empty() || name == ".") return;
  if (name == "..") {
    reached = reached.parent_path();
    return;
  }
  const fs::path next = reached / name;
  struct stat status {};
  bool found = lstat(next.c_str(), &status) == 0;
  if (!found && errno == ENOENT && goal == Goal::Folder) {
    MakeFolder(next);
    found = lstat(next.c_str(), &status) == 0;
  }
  if (!found && (errno != ENOENT || goal == Goal::Folder))
    throw FileError(next, LastError().message());
  if (found && S_ISLNK(status.st_mode)) {
    Follow(next, status);
    return;
  }
  if (goal == Goal::Folder) VetFolder(next, status);
  reached = next;
}

void PathWalk::Follow(const fs::path& link, const struct stat& status) {
  if (!IsTrusted(status)) throw FileError(link, kForeignLink);
  if (++links > kMostLinks)
    throw FileError(link, std::make_error_code(std::errc::too_many_symbolic_link_levels).message());
  std::error_code error;
  const fs::path target = fs::read_symlink(link, error);
  if (error) throw FileError(link, error.message());
  Go(target);
}

void PathWalk::MakeFolder(const fs::path& folder) const {
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
    throw FileError(folder, "the folder cannot be made: " + LastError().message());
}

void PathWalk::VetFolder(const fs::path& folder, const struct stat& status) const {
  if (!S_ISDIR(status.st_mode)) throw FileError(folder, "is not a folder");
  if (IsSticky(reached) && OthersMayWrite(status)) throw FileError(folder, kOpenToOthers);
}

// What lies in the folder already, and who may add to it.
void PathWalk::VetEntries() const {
  struct stat status {};
  if (stat(reached.c_str(), &status) == 0 && (status.st_mode & S_ISVTX) != 0 &&
      OthersMayWrite(status))
    throw FileError(reached, kOpenToOthers);
  for (const fs::path& entry : EntriesOf(reached))
    if (lstat(entry.c_str(), &status) == 0 && S_ISLNK(status.st_mode) && !IsTrusted(status))
      throw FileError(entry, kForeignLink);
}

bool PathWalk::IsTrusted(const struct stat& status) const {
  return status.st_uid == 0 || status.st_uid == user;
}

// A group of the user's own is the user.
bool PathWalk::OthersMayWrite(const struct stat& status) const {
  const bool group = (status.st_mode & S_IWGRP) != 0 && status.st_gid != getegid();
  return !IsTrusted(status) || group || (status.st_mode & S_IWOTH) != 0;
}

}  // namespace os
