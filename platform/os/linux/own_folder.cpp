#include "platform/os/own_folder.h"

#include <unistd.h>

#include "platform/os/linux/path_walk.h"

namespace os {

void MakeOwnFolder(const std::filesystem::path& folder) {
  PathWalk(geteuid(), PathWalk::Goal::Folder).To(folder);
}

std::filesystem::path FollowOwnLinks(const std::filesystem::path& file) {
  return PathWalk(geteuid(), PathWalk::Goal::File).To(file);
}

}  // namespace os
