#pragma once

#include <archive.h>
#include <archive_entry.h>

#include <array>
#include <map>
#include <memory>
#include <string>

#include "platform/os/utf8_locale.h"
#include "tests/support/temporary_folder.h"

/// What the files in an archive hold, by their names in it.
inline std::map<std::string, std::string> Unpacked(const std::filesystem::path& file) {
  const os::Utf8Locale utf8Names;
  const std::string packed = ReadText(file);
  const std::unique_ptr<archive, int (*)(archive*)> reading(archive_read_new(), &archive_read_free);
  archive_read_support_filter_gzip(reading.get());
  archive_read_support_format_tar(reading.get());
  archive_read_open_memory(reading.get(), packed.data(), packed.size());
  std::map<std::string, std::string> texts;
  archive_entry* entry = nullptr;
  while (archive_read_next_header(reading.get(), &entry) == ARCHIVE_OK) {
    std::string& text = texts[archive_entry_pathname_utf8(entry)];
    std::array<char, 4096> chunk;
    la_ssize_t length = 0;
    while ((length = archive_read_data(reading.get(), chunk.data(), chunk.size())) > 0)
      text.append(chunk.data(), static_cast<std::size_t>(length));
  }
  return texts;
}
