#include "platform/message/linux/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

#include "common/path_text.h"

namespace message {

FileLock::FileLock(FileLock&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept {
  std::swap(descriptor, other.descriptor);
  return *this;
}

FileLock::~FileLock() {
  if (descriptor >= 0) close(descriptor);
}

std::optional<FileLock> FileLock::TryTake(const std::filesystem::path& file) {
  const auto refused = [&file](const std::string& reason) {
    return std::runtime_error(common::PathText(file) + ": " + reason);
  };
  constexpr int kFlags = O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
  FileLock lock(open(file.c_str(), kFlags, S_IRUSR | S_IWUSR));
  struct stat status {};
  if (lock.descriptor < 0 || fstat(lock.descriptor, &status) != 0)
    throw refused(std::generic_category().message(errno));
  if (!S_ISREG(status.st_mode)) throw refused("it is not a file");
  if (status.st_uid != geteuid()) throw refused("it belongs to another user");
  if (flock(lock.descriptor, LOCK_EX | LOCK_NB) == 0) return lock;
  if (errno == EWOULDBLOCK) return std::nullopt;
  throw refused(std::generic_category().message(errno));
}

}  // namespace message
