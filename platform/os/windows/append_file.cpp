#include "platform/os/append_file.h"

#include <string>

#include "platform/os/windows/handle.h"

namespace os {

namespace {

// A byte that no file has stands for the right to append; closing the file gives it back.
bool LockEnd(HANDLE file) {
  OVERLAPPED place{};
  place.Offset = MAXDWORD;
  place.OffsetHigh = MAXLONG;
  return LockFileEx(file, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) != 0;
}

}  // namespace

bool AppendLine(const std::filesystem::path& file, std::string_view line) {
  const std::string bytes = std::string(line) + '\n';
  const Handle opened(CreateFileW(file.c_str(), FILE_APPEND_DATA | FILE_READ_DATA | SYNCHRONIZE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  return opened && LockEnd(opened.Get()) &&
         WriteFile(opened.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                   nullptr) != 0 &&
         written == bytes.size();
}

}  // namespace os
