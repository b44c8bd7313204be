#pragma once

#include <sys/types.h>

#include <deque>
#include <filesystem>

struct stat;

namespace os {

/// A way through the file system, link by link and folder by folder, on which nobody but one user
/// and the administrator is trusted. One walk an object; one thread.
class PathWalk {
 public:
  enum class Goal {
    File,    // may be missing; folders on the way may belong to anyone
    Folder,  // made where it is missing, with those above it; others must not be able to replace it
  };

  PathWalk(uid_t trusted, Goal kind) : user(trusted), goal(kind) {}

  /// The path without links that `path` stands for. Throws std::runtime_error "<path>: <reason>".
  std::filesystem::path To(const std::filesystem::path& path);

 private:
  void Go(const std::filesystem::path& path);
  void Step(const std::filesystem::path& name);
  void Follow(const std::filesystem::path& link, const struct stat& status);
  void MakeFolder(const std::filesystem::path& folder) const;
  void VetFolder(const std::filesystem::path& folder, const struct stat& status) const;
  void VetEntries() const;
  bool IsTrusted(const struct stat& status) const;
  bool OthersMayWrite(const struct stat& status) const;

  const uid_t user;
  const Goal goal;
  std::filesystem::path reached;            // holds no links
  std::deque<std::filesystem::path> names;  // still to go
  int links = 0;
};

}  // namespace os
