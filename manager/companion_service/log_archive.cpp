#include "manager/companion_service/log_archive.h"

#include <archive.h>
#include <archive_entry.h>

#include <stdexcept>
#include <utility>

#include "common/path_text.h"
#include "platform/os/clock.h"

namespace companion {
namespace {

constexpr int kPermissions = 0600;

la_ssize_t Write(archive*, void* stream, const void* bytes, std::size_t count) {
  auto& file = *static_cast<std::ofstream*>(stream);
  file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(count));
  return file ? static_cast<la_ssize_t>(count) : -1;
}

int Close(archive*, void* stream) {
  auto& file = *static_cast<std::ofstream*>(stream);
  file.close();
  return file ? ARCHIVE_OK : ARCHIVE_FATAL;
}

}  // namespace

LogArchive::LogArchive(std::filesystem::path file)
    : path(std::move(file)),
      time(os::CurrentClock().SecondsSinceEpoch()),
      stream(path, std::ios::binary | std::ios::trunc),
      packed(archive_write_new(), &archive_write_free) {
  Check(stream ? ARCHIVE_OK : ARCHIVE_FATAL);
  Check(archive_write_add_filter_gzip(packed.get()));
  Check(archive_write_set_format_pax_restricted(packed.get()));
  Check(archive_write_set_bytes_in_last_block(packed.get(), 1));  // no padding behind it
  Check(archive_write_open(packed.get(), &stream, nullptr, &Write, &Close));
}

LogArchive::~LogArchive() = default;

void LogArchive::Add(const std::string& name, const std::string& content) {
  const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                       &archive_entry_free);
  archive_entry_update_pathname_utf8(entry.get(), name.c_str());
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), kPermissions);
  archive_entry_set_mtime(entry.get(), time, 0);
  archive_entry_set_size(entry.get(), static_cast<la_int64_t>(content.size()));
  Check(archive_write_header(packed.get(), entry.get()));
  const la_ssize_t written = archive_write_data(packed.get(), content.data(), content.size());
  Check(written == static_cast<la_ssize_t>(content.size()) ? ARCHIVE_OK : ARCHIVE_FATAL);
}

void LogArchive::Finish() {
  Check(archive_write_close(packed.get()));
}

void LogArchive::Check(int result) const {
  if (result < ARCHIVE_WARN)
    throw std::runtime_error(common::PathText(path) + ": the archive cannot be written");
}

}  // namespace companion
