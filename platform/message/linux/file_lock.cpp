#include "platform/message/linux/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
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
  FileLock lock(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
  if (lock.descriptor < 0)
    throw std::runtime_error(common::PathText(file) + ": " +
                             std::generic_category().message(errno));
  if (flock(lock.descriptor, LOCK_EX | LOCK_NB) != 0) return std::nullopt;
  return lock;
}

}  // namespace message
