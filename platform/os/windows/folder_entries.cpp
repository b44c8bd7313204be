#include "platform/os/folder_entries.h"

#include <windows.h>

#include <memory>
#include <string_view>

namespace os {

// The standard library's own iterator knows paths of less than 260 characters only.
std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder) {
  WIN32_FIND_DATAW found{};
  HANDLE first = FindFirstFileW((folder / L"*").c_str(), &found);
  if (first == INVALID_HANDLE_VALUE) return {};
  const std::unique_ptr<void, decltype(&FindClose)> search(first, &FindClose);
  std::vector<std::filesystem::path> entries;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") entries.push_back(folder / name);
  } while (FindNextFileW(search.get(), &found) != 0);
  return entries;
}

}  // namespace os
