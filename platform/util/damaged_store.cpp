#include "platform/util/damaged_store.h"

#include <cstdio>
#include <fstream>
#include <string_view>

#include "common/path_text.h"
#include "platform/os/clock.h"

namespace util {
namespace {

namespace fs = std::filesystem;

// The store itself last: without it beside them, a new store would take the others for its own.
constexpr std::array<std::string_view, 4> kParts = {"-wal", "-shm", "-journal", ""};

fs::path With(const fs::path& file, std::string_view ending) {
  fs::path longer = file;
  longer += ending;
  return longer;
}

// An empty SQLite file is a lock on every system, and lets go when its process dies.
StoreFile LockFile(const fs::path& file, const char* take, Patience& patience) {
  StoreFile lock(With(file, ".lock"), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, patience);
  lock.Use([take](SQLite::Database& database) { database.exec(take); });
  return lock;
}

// An SQLite file that only a newer SQLite can read says so in its header, and is no damaged one.
bool IsOfNewerFormat(const fs::path& file) {
  constexpr std::string_view kMagic{"SQLite format 3\0", 16};
  constexpr std::size_t kReadVersion = 19;
  constexpr char kKnownVersion = 2;
  std::array<char, kReadVersion + 1> header{};
  std::ifstream stream(file, std::ios::binary);
  stream.read(header.data(), header.size());
  return stream && std::string_view(header.data(), kMagic.size()) == kMagic &&
         header[kReadVersion] > kKnownVersion;
}

// Empty for a sound store. Throws for one that cannot be looked at.
std::string DamageOf(const fs::path& file, Patience& patience) {
  try {
    StoreFile(file, SQLite::OPEN_READONLY, patience).Check();
    return {};
  } catch (const StoreError& error) {
    if (!error.TellsOfDamage()) throw;
    if (IsOfNewerFormat(file)) throw StoreError(file, "is of a newer format");
    return error.what();
  }
}

// Row by row up to the first damaged one.
std::vector<RegistryRow> ReadableRegistry(const fs::path& file, Patience& patience) {
  std::vector<RegistryRow> rows;
  try {
    StoreFile store(file, SQLite::OPEN_READONLY, patience);
    store.Use([&rows](SQLite::Database& database) {
      database.exec("PRAGMA writable_schema=ON");  // also reads a file that was cut off
      SQLite::Statement select(database, "SELECT root, key, name, value FROM REGISTRY");
      while (select.executeStep()) {
        RegistryRow row;
        for (std::size_t i = 0; i < row.size(); ++i)
          row[i] = select.getColumn(static_cast<int>(i)).getString();
        rows.push_back(std::move(row));
      }
    });
  } catch (const StoreError&) {
    // What was read before counts.
  }
  return rows;
}

bool IsTaken(const fs::path& name) {
  for (const std::string_view part : kParts)
    if (fs::exists(fs::symlink_status(With(name, part)))) return true;
  return false;
}

fs::path FreeName(const fs::path& file) {
  const os::LocalTime now = os::CurrentClock().Local();
  std::array<char, 64> ending{};
  std::snprintf(ending.data(), ending.size(), ".damaged-%04d-%02d-%02d-%02d-%02d-%02d", now.year,
                now.month, now.day, now.hour, now.minute, now.second);
  const fs::path first = With(file, ending.data());
  fs::path name = first;
  for (int number = 2; IsTaken(name); ++number) name = With(first, "-" + std::to_string(number));
  return name;
}

// Where a file that somebody has open cannot be renamed, whoever else met the damage lets go of it
// soon.
std::error_code Rename(const fs::path& from, const fs::path& to, Patience& patience) {
  std::error_code error;
  do {
    fs::rename(from, to, error);
  } while (error && patience.Wait());
  return error;
}

void RenameAll(const fs::path& file, const fs::path& name, Patience& patience) {
  std::vector<std::string_view> renamed;
  for (const std::string_view part : kParts) {
    if (!fs::exists(With(file, part))) continue;
    if (const std::error_code error = Rename(With(file, part), With(name, part), patience)) {
      std::error_code ignored;
      for (const std::string_view back : renamed)
        fs::rename(With(name, back), With(file, back), ignored);
      throw StoreError(file, "is damaged and cannot be set aside: " + error.message());
    }
    renamed.push_back(part);
  }
}

}  // namespace

std::optional<StoreFile> KeepNames(const fs::path& file, Patience& patience) {
  try {
    return LockFile(file, "BEGIN; SELECT * FROM sqlite_master", patience);
  } catch (const StoreError& error) {
    if (error.TellsOfAnother()) throw;
    return std::nullopt;
  }
}

std::optional<DamagedStore> SetAsideDamagedStore(const fs::path& file, Patience& patience) {
  const StoreFile lock = LockFile(file, "BEGIN EXCLUSIVE", patience);
  if (!fs::exists(file)) return std::nullopt;
  DamagedStore damaged;
  damaged.damage = DamageOf(file, patience);
  if (damaged.damage.empty()) return std::nullopt;
  damaged.registry = ReadableRegistry(file, patience);
  damaged.keptAs = FreeName(file);
  RenameAll(file, damaged.keptAs, patience);
  return damaged;
}

}  // namespace util
