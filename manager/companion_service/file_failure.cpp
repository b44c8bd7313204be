#include "manager/companion_service/file_failure.h"

#include <cerrno>

#include "manager/companion_service/shown_path.h"

namespace companion {

std::runtime_error FileFailure(const std::filesystem::path& file, const std::error_code& reason) {
  return std::runtime_error(ShownPath(file) + ": " + reason.message());
}

std::runtime_error LastFailure(const std::filesystem::path& file, const std::string& otherwise) {
  const std::error_code reason(errno, std::generic_category());
  return reason ? FileFailure(file, reason)
                : std::runtime_error(ShownPath(file) + ": " + otherwise);
}

}  // namespace companion
