#include "platform/os/append_file.h"

#include <string>
#include <utility>

#include "platform/os/appended_file.h"

namespace os {
namespace {

namespace fs = std::filesystem;

// Others may put the file away each time that it has been opened; a file system may tell wrongly.
constexpr int kMostAttempts = 100;

}  // namespace

fs::path EarlierFile(const fs::path& file) {
  fs::path name = file.stem();
  name += ".1";
  name += file.extension();
  return file.parent_path() / name;
}

LineFile::LineFile(fs::path file)
    : path(std::move(file)), opened(std::make_unique<AppendedFile>(path)) {}
LineFile::LineFile(LineFile&&) noexcept = default;
LineFile& LineFile::operator=(LineFile&&) noexcept = default;
LineFile::~LineFile() = default;

void LineFile::Append(std::string_view line) {
  const std::string bytes = std::string(line) + '\n';
  for (int attempt = 1; !TryToAppend(bytes, attempt == kMostAttempts); ++attempt)
    opened = std::make_unique<AppendedFile>(path);
}

// Whether the full file has been put away, by another or now. One that cannot be put away grows:
// better than a line lost.
bool LineFile::IsAway() {
  if (!opened->IsInPlace()) return true;
  std::error_code error;
  fs::rename(path, EarlierFile(path), error);
  return !error;
}

// False when the file is to be opened anew.
bool LineFile::TryToAppend(std::string_view bytes, bool isLastAttempt) {
  const AppendedFile::Turn turn(*opened);
  const std::uintmax_t size = opened->Size();
  const bool isFull = size > 0 && size + bytes.size() > kFullFile;
  if (!isLastAttempt && (opened->IsRemoved() || (isFull && IsAway()))) return false;
  opened->Write(bytes);
  return true;
}

void AppendLine(const fs::path& file, std::string_view line) {
  LineFile(file).Append(line);
}

}  // namespace os
