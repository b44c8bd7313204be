#include "platform/util/store_file.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <system_error>

#include "common/path_text.h"

namespace util {
namespace {

std::string ReasonOf(const SQLite::Exception& error, int systemError) {
  switch (error.getErrorCode()) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "another program holds it";
    case SQLITE_CANTOPEN:
    case SQLITE_IOERR:
      if (systemError == 0) return error.what();
      return std::string(error.what()) + ": " + std::system_category().message(systemError);
    default:
      return error.what();
  }
}

// SQLite's own handle, the one that knows the system's reason, does not survive a failed opening.
int SystemErrorOfOpening(const std::string& name, int flags) {
  sqlite3* opened = nullptr;
  sqlite3_open_v2(name.c_str(), &opened, flags, nullptr);
  const int systemError = sqlite3_system_errno(opened);
  sqlite3_close(opened);
  return systemError;
}

SQLite::Database Open(const std::filesystem::path& file, int flags) {
  const std::string name = common::PathText(file);
  try {
    return SQLite::Database(name, flags);
  } catch (const SQLite::Exception& error) {
    throw StoreError(file, error, SystemErrorOfOpening(name, flags));
  }
}

// What the file itself holds, read through SQLite's own handle: closing another one would let go of
// its locks.
struct Stored {
  sqlite3_int64 size = 0;
  std::array<unsigned char, 100> header{};  // zeros where the file is shorter
};

Stored ReadStored(const SQLite::Database& database) {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  Stored stored;
  int result =
      file->pMethods->xRead(file, stored.header.data(), static_cast<int>(stored.header.size()), 0);
  // After the header, so that a file that grows meanwhile does not look cut off.
  if (result == SQLITE_OK || result == SQLITE_IOERR_SHORT_READ)
    result = file->pMethods->xFileSize(file, &stored.size);
  if (result != SQLITE_OK) throw SQLite::Exception(sqlite3_errstr(result), result);
  return stored;
}

// The size that the header tells, see "The Database Header" of SQLite's file format; 0 where it
// tells none, as one of an old SQLite or a file that is none.
std::int64_t SizeTold(const std::array<unsigned char, 100>& header) {
  constexpr std::size_t kPageSize = 16;
  constexpr std::size_t kChanges = 24;
  constexpr std::size_t kPages = 28;
  constexpr std::size_t kPagesValidFor = 92;  // the count of changes
  const auto number = [&header](std::size_t at, std::size_t length) {
    std::int64_t value = 0;
    for (std::size_t i = 0; i < length; ++i) value = value * 256 + header[at + i];
    return value;
  };
  if (number(kChanges, 4) != number(kPagesValidFor, 4)) return 0;
  const std::int64_t pageSize = number(kPageSize, 2);
  return number(kPages, 4) * (pageSize == 1 ? 65536 : pageSize);
}

// Whether changes may stand beside the file that are not in it yet.
bool HasSideFile(const std::filesystem::path& file) {
  return std::ranges::any_of(std::array{"-wal", "-journal"}, [&file](const char* ending) {
    std::filesystem::path beside = file;
    beside += ending;
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(beside, error);
    return !error && size > 0;
  });
}

int WaitForOthers(void* patience, int /*calls*/) {
  return static_cast<Patience*>(patience)->Wait() ? 1 : 0;
}

}  // namespace

StoreError::StoreError(const std::filesystem::path& file, const std::string& reason)
    : std::runtime_error(common::PathText(file) + ": " + reason) {}

StoreError::StoreError(const std::filesystem::path& file, const SQLite::Exception& error,
                       int systemError)
    : StoreError(file, ReasonOf(error, systemError)) {
  const int code = error.getErrorCode();
  isDamage = code == SQLITE_CORRUPT || code == SQLITE_NOTADB;
  isHeld = code == SQLITE_BUSY || code == SQLITE_LOCKED;
}

StoreError StoreError::OfDamage(const std::filesystem::path& file) {
  StoreError error(file, "is damaged");
  error.isDamage = true;
  return error;
}

StoreFile::StoreFile(std::filesystem::path file, int flags, Patience& patience)
    : path(std::move(file)), database(Open(path, flags)) {
  sqlite3_busy_handler(database.getHandle(), WaitForOthers, &patience);
}

void StoreFile::LeaveAsItIs() {
  sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
}

// An empty file may be one that another is about to fill. One that a checkpoint has not gone
// through yet may be shorter than its header says: the pages that it lacks stand beside it.
void StoreFile::CheckLength() {
  const Stored stored = Use(ReadStored);
  if (stored.size == 0 || stored.size >= SizeTold(stored.header)) return;
  if (HasSideFile(path)) return CheckContent();
  LeaveAsItIs();
  throw StoreError::OfDamage(path);
}

void StoreFile::Check() {
  CheckLength();
  CheckContent();
}

void StoreFile::CheckContent() {
  const bool isSound = Use([](SQLite::Database& opened) {
    return opened.execAndGet("PRAGMA integrity_check(1)").getString() == "ok";
  });
  if (isSound) return;
  LeaveAsItIs();
  throw StoreError::OfDamage(path);
}

bool StoreFile::HasMoved() {
  int moved = 0;
  sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
  return moved != 0;
}

StoreError StoreFile::Translated(const SQLite::Exception& error) {
  StoreError translated(path, error, sqlite3_system_errno(database.getHandle()));
  if (translated.TellsOfDamage()) LeaveAsItIs();
  return translated;
}

}  // namespace util
