#include "platform/os/file_error.h"

#include <windows.h>

namespace os {

std::error_code LastError() {
  return {static_cast<int>(GetLastError()), std::system_category()};
}

}  // namespace os
