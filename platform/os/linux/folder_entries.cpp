#include "platform/os/folder_entries.h"

namespace os {

std::vector<std::filesystem::path> EntriesOf(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> entries;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error))
    entries.push_back(entry->path());
  return entries;
}

}  // namespace os
