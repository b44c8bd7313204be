#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <exception>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "manager/companion_service/output_file.h"
#include "platform/os/utf8_locale.h"

struct archive;

namespace companion {

/// A new tar.gz archive, gone again with the object unless it was finished. One thread. Everything
/// throws std::runtime_error "<path>: <reason>" when it cannot be done.
class LogArchive {
 public:
  explicit LogArchive(std::filesystem::path file);
  LogArchive(const LogArchive&) = delete;
  LogArchive& operator=(const LogArchive&) = delete;
  ~LogArchive();

  /// A file of this name in the archive's folder logs/; the name gets a number when it is taken
  /// already. `content` is a file that nobody writes to meanwhile.
  void Add(const std::filesystem::path& name, const std::filesystem::path& content);

  /// Writes what is missing and gives the archive its name.
  void FinishAs(const std::filesystem::path& name);

 private:
  std::string NewName(const std::filesystem::path& name);
  void WriteHeader(const std::string& name, std::uintmax_t size);
  void WriteContent(const std::filesystem::path& content);
  std::ptrdiff_t TakePacked(std::string_view bytes) noexcept;
  void Check(int result) const;

  const os::Utf8Locale utf8Names;
  const std::time_t time;  // of every file in it
  OutputFile output;
  std::exception_ptr failure;   // of the output, which the archive library cannot hand on
  std::set<std::string> names;  // in use
  const std::unique_ptr<archive, int (*)(archive*)> packed;
};

}  // namespace companion
