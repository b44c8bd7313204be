#include "platform/util/store_file.h"

#include <sqlite3.h>

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

void StoreFile::Check() {
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
