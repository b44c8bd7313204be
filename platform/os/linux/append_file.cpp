#include "platform/os/append_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace os {

bool AppendLine(const std::filesystem::path& file, std::string_view line) {
  const std::string bytes = std::string(line) + '\n';
  const int descriptor = open(file.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
  if (descriptor < 0) return false;
  ssize_t written = 0;
  do {
    written = write(descriptor, bytes.data(), bytes.size());
  } while (written < 0 && errno == EINTR);
  const bool closed = close(descriptor) == 0;
  return closed && written == static_cast<ssize_t>(bytes.size());
}

}  // namespace os
