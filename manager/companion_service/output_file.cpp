#include "manager/companion_service/output_file.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "manager/companion_service/file_failure.h"

namespace companion {

namespace fs = std::filesystem;

OutputFile::OutputFile(fs::path file) : path(std::move(file)) {
  std::error_code ignored;  // what cannot be removed cannot be opened either
  fs::remove(path, ignored);
  errno = 0;
  stream.open(path, std::ios::binary | std::ios::trunc);
  Check();
}

OutputFile::~OutputFile() {
  if (kept) return;
  stream.close();
  std::error_code ignored;
  fs::remove(path, ignored);
}

void OutputFile::Write(std::string_view bytes) {
  errno = 0;
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  Check();
}

void OutputFile::Close() {
  errno = 0;
  stream.close();
  Check();
}

void OutputFile::Keep() {
  kept = true;
}

void OutputFile::KeepAs(const fs::path& name) {
  std::error_code error;
  fs::rename(path, name, error);
  if (error) throw FileFailure(name, error);
  kept = true;
}

void OutputFile::Check() const {
  if (!stream) throw LastFailure(path, "the file cannot be written");
}

}  // namespace companion
