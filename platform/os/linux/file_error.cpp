#include "platform/os/file_error.h"

#include <cerrno>

namespace os {

std::error_code LastError() {
  return {errno, std::generic_category()};
}

}  // namespace os
