#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string_view>

// Files that grow line by line and do not grow for ever. Lines of several threads and processes do
// not mix. Only plain files are written to: never through a link, nor into a pipe or a device. Any
// thread.
namespace os {

/// Bytes that such a file holds at most, unless its only line is longer.
constexpr std::uintmax_t kFullFile = 8 * 1024 * 1024;

/// Where the full file goes: "name.1.ext" beside "name.ext". There is one; the next takes its
/// place.
std::filesystem::path EarlierFile(const std::filesystem::path& file);

class AppendedFile;

/// Such a file kept open, so that its lines arrive also when this process may open no more files.
/// One that is renamed takes lines until it is full; in place of one that is removed a new one is
/// made.
/// What throws is std::runtime_error "<path>: <reason>". One thread at a time.
class LineFile {
 public:
  /// Makes the file, for the user alone, if it is missing. Throws when it cannot be appended to.
  explicit LineFile(std::filesystem::path file);
  LineFile(LineFile&&) noexcept;
  LineFile& operator=(LineFile&&) noexcept;
  ~LineFile();

  /// Appends one line; the line feed is added. Throws when that cannot be done; the file holds
  /// nothing of the line then.
  void Append(std::string_view line);

 private:
  bool IsAway();
  bool TryToAppend(std::string_view bytes, bool isLastAttempt);

  std::filesystem::path path;
  std::unique_ptr<AppendedFile> opened;
};

/// Appends one line to a file that is opened for it alone; as LineFile.
void AppendLine(const std::filesystem::path& file, std::string_view line);

}  // namespace os
