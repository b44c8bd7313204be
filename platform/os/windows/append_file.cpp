#include "platform/os/append_file.h"

#include <string>

#include "platform/os/windows/handle.h"

namespace os {

// Without the right to write elsewhere, each write goes to the end at that moment.
bool AppendLine(const std::filesystem::path& file, std::string_view line) {
  const std::string bytes = std::string(line) + '\n';
  const Handle opened(CreateFileW(file.c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  return opened &&
         WriteFile(opened.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                   nullptr) != 0 &&
         written == bytes.size();
}

}  // namespace os
