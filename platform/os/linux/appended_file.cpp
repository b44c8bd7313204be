#include "platform/os/appended_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

#include "platform/os/file_error.h"

namespace os {
namespace {

constexpr const char* kNotPlain = "is not a regular file";

std::string ReasonOfOpen() {
  if (errno == ELOOP) return "is a link";
  if (errno == ENXIO) return kNotPlain;  // a pipe that nobody reads, a socket
  return "cannot be written: " + LastError().message();
}

}  // namespace

struct AppendedFile::System {
  ~System() {
    if (descriptor >= 0) close(descriptor);
  }

  struct stat Status() const {
    struct stat status {};
    fstat(descriptor, &status);
    return status;
  }

  int descriptor = -1;
  bool locked = false;
};

AppendedFile::AppendedFile(const std::filesystem::path& file)
    : path(file), system(std::make_unique<System>()) {
  system->descriptor =
      open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
           S_IRUSR | S_IWUSR);
  if (system->descriptor < 0) throw FileError(path, ReasonOfOpen());
  if (!S_ISREG(system->Status().st_mode)) throw FileError(path, kNotPlain);
}

AppendedFile::~AppendedFile() = default;

void AppendedFile::Lock() {
  int result = 0;
  do {
    result = flock(system->descriptor, LOCK_EX);
  } while (result != 0 && errno == EINTR);
  system->locked = result == 0;
}

void AppendedFile::Unlock() {
  if (system->locked) flock(system->descriptor, LOCK_UN);
  system->locked = false;
}

bool AppendedFile::IsRemoved() const {
  return system->Status().st_nlink == 0;
}

bool AppendedFile::IsInPlace() const {
  struct stat named {};
  const struct stat own = system->Status();
  return lstat(path.c_str(), &named) == 0 && named.st_dev == own.st_dev &&
         named.st_ino == own.st_ino;
}

std::uintmax_t AppendedFile::Size() const {
  return static_cast<std::uintmax_t>(system->Status().st_size);
}

void AppendedFile::Write(std::string_view bytes) {
  const std::uintmax_t before = Size();
  while (!bytes.empty()) {
    const ssize_t written = write(system->descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) {
      const std::string reason = LastError().message();
      if (system->locked && Size() > before &&
          ftruncate(system->descriptor, static_cast<off_t>(before)) != 0)
        throw FileError(path, "is written in part only: " + reason);
      throw FileError(path, "cannot be written: " + reason);
    }
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

}  // namespace os
