#include "platform/os/new_file.h"

#include <algorithm>

#include "platform/os/file_error.h"
#include "platform/os/windows/handle.h"

namespace os {

std::error_code WriteNewFile(const std::filesystem::path& file, std::string_view content) {
  const Handle made(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!made) return LastError();
  while (!content.empty()) {
    const auto part = static_cast<DWORD>(std::min<std::size_t>(content.size(), MAXLONG));
    DWORD written = 0;
    if (WriteFile(made.Get(), content.data(), part, &written, nullptr) == 0) return LastError();
    content.remove_prefix(written);
  }
  return {};
}

}  // namespace os
