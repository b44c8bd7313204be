#include "platform/os/local_socket.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "platform/os/path_text.h"

namespace os {
namespace {

namespace fs = std::filesystem;

bool IsOwnFolder(const fs::path& folder) {
  struct stat status {};
  return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
         status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

}  // namespace

fs::path RuntimeFolder() {
  const char* session = std::getenv("XDG_RUNTIME_DIR");
  if (session != nullptr && *session == '/' && IsOwnFolder(session)) return session;
  fs::path folder = "/tmp/sysdiagnose-" + std::to_string(geteuid());
  if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
    throw std::runtime_error(PathText(folder) + ": the folder cannot be made");
  if (!IsOwnFolder(folder))
    throw std::runtime_error(PathText(folder) + ": the folder does not belong to this user alone");
  return folder;
}

std::optional<int> ProcessOfOwnPeer(int socket) {
  ucred peer{};
  socklen_t size = sizeof peer;
  if (getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) != 0) return std::nullopt;
  if (peer.uid != geteuid()) return std::nullopt;
  return peer.pid;
}

bool MakePrivate(const fs::path& file) {
  return chmod(file.c_str(), S_IRUSR | S_IWUSR) == 0;
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(descriptor, other.descriptor);
  return *this;
}

FileLock::~FileLock() {
  if (descriptor >= 0) close(descriptor);
}

std::optional<FileLock> FileLock::TryTake(const fs::path& file) {
  FileLock lock(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
  if (lock.descriptor < 0)
    throw std::runtime_error(PathText(file) + ": " + std::generic_category().message(errno));
  if (flock(lock.descriptor, LOCK_EX | LOCK_NB) != 0) return std::nullopt;
  return lock;
}

}  // namespace os
