#include "platform/os/append_file.h"

#include <string>

#include "platform/os/appended_file.h"

namespace os {
namespace {

namespace fs = std::filesystem;

// Others may put the file away each time that it has been opened; a file system may tell wrongly.
constexpr int kMostAttempts = 100;

// False when another file is to be opened in place of this one. A full one that cannot be put away
// grows: better than a line lost.
bool TryToAppend(const fs::path& file, std::string_view bytes, bool isLastAttempt) {
  AppendedFile appended(file);
  appended.Lock();
  if (!appended.IsInPlace() && !isLastAttempt) return false;
  const std::uintmax_t size = appended.Size();
  if (!isLastAttempt && size > 0 && size + bytes.size() > kFullFile) {
    std::error_code error;
    fs::rename(file, EarlierFile(file), error);
    if (!error) return false;
  }
  appended.Write(bytes);
  return true;
}

}  // namespace

fs::path EarlierFile(const fs::path& file) {
  fs::path name = file.stem();
  name += ".1";
  name += file.extension();
  return file.parent_path() / name;
}

void AppendLine(const fs::path& file, std::string_view line) {
  const std::string bytes = std::string(line) + '\n';
  for (int attempt = 1; !TryToAppend(file, bytes, attempt == kMostAttempts);) ++attempt;
}

void PrepareAppending(const fs::path& file) {
  const AppendedFile appended(file);
}

}  // namespace os
