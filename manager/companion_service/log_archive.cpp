#include "manager/companion_service/log_archive.h"

#include <archive.h>
#include <archive_entry.h>

#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <utility>

#include "manager/companion_service/file_failure.h"
#include "manager/companion_service/shown_path.h"
#include "platform/os/clock.h"

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr int kPermissions = 0600;
constexpr std::size_t kBlock = std::size_t{64} << 10;

}  // namespace

LogArchive::LogArchive(fs::path file)
    : time(os::CurrentClock().SecondsSinceEpoch()),
      output(std::move(file)),
      packed(archive_write_new(), &archive_write_free) {
  Check(archive_write_add_filter_gzip(packed.get()));
  Check(archive_write_set_format_pax_restricted(packed.get()));
  Check(archive_write_set_bytes_in_last_block(packed.get(), 1));  // no padding behind it
  Check(archive_write_open(
      packed.get(), this, nullptr,
      [](archive*, void* self, const void* bytes, std::size_t count) -> la_ssize_t {
        return static_cast<LogArchive*>(self)->TakePacked({static_cast<const char*>(bytes), count});
      },
      nullptr));
}

LogArchive::~LogArchive() = default;

void LogArchive::Add(const fs::path& name, const fs::path& content) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(content, error);
  if (error) throw FileFailure(content, error);
  WriteHeader("logs/" + NewName(name), size);
  WriteContent(content);
}

void LogArchive::FinishAs(const fs::path& name) {
  Check(archive_write_close(packed.get()));
  output.Close();
  output.KeepAs(name);
}

std::string LogArchive::NewName(const fs::path& name) {
  std::string used = ShownPath(name);
  for (int number = 2; !names.insert(used).second; ++number) {
    fs::path next = name.stem();
    next += "-" + std::to_string(number);
    next += name.extension();
    used = ShownPath(next);
  }
  return used;
}

void LogArchive::WriteHeader(const std::string& name, std::uintmax_t size) {
  const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                       &archive_entry_free);
  // The C library of Windows has no locale that holds every name.
  if (archive_entry_update_pathname_utf8(entry.get(), name.c_str()) == 0)
    archive_entry_set_pathname(entry.get(), Escaped(name).c_str());
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), kPermissions);
  archive_entry_set_mtime(entry.get(), time, 0);
  archive_entry_set_size(entry.get(), static_cast<la_int64_t>(size));
  Check(archive_write_header(packed.get(), entry.get()));
}

void LogArchive::WriteContent(const fs::path& content) {
  std::ifstream stream(content, std::ios::binary);
  std::string block(kBlock, '\0');
  while (stream) {
    errno = 0;
    stream.read(block.data(), static_cast<std::streamsize>(block.size()));
    if (!stream.eof() && !stream) throw LastFailure(content, "the file cannot be read");
    const auto count = static_cast<std::size_t>(stream.gcount());
    const la_ssize_t written = archive_write_data(packed.get(), block.data(), count);
    Check(written == static_cast<la_ssize_t>(count) ? ARCHIVE_OK : ARCHIVE_FATAL);
  }
}

std::ptrdiff_t LogArchive::TakePacked(std::string_view bytes) noexcept {
  try {
    output.Write(bytes);
    return static_cast<std::ptrdiff_t>(bytes.size());
  } catch (...) {
    failure = std::current_exception();
    return -1;
  }
}

void LogArchive::Check(int result) const {
  if (result == ARCHIVE_OK) return;
  if (failure) std::rethrow_exception(failure);
  const char* reason = archive_error_string(packed.get());
  throw std::runtime_error(ShownPath(output.Path()) + ": " +
                           (reason != nullptr ? reason : "the archive cannot be written"));
}

}  // namespace companion
