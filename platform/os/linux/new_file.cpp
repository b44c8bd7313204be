#include "platform/os/new_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "platform/os/file_error.h"

namespace os {
namespace {

std::error_code WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = write(descriptor, content.data(), content.size());
    if (written >= 0)
      content.remove_prefix(static_cast<std::size_t>(written));
    else if (errno != EINTR)
      return LastError();
  }
  return {};
}

}  // namespace

std::error_code WriteNewFile(const std::filesystem::path& file, std::string_view content) {
  const int descriptor =
      open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
  if (descriptor < 0) return LastError();
  const std::error_code error = WriteAll(descriptor, content);
  const std::error_code closed = close(descriptor) == 0 ? std::error_code() : LastError();
  return error ? error : closed;
}

}  // namespace os
