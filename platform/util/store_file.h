#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/util/patience.h"

namespace util {

/// What is wrong with a file of the store. The text names the file and, where the system refused
/// something, its reason.
class StoreError : public std::runtime_error {
 public:
  StoreError(const std::filesystem::path& file, const std::string& reason);
  StoreError(const std::filesystem::path& file, const SQLite::Exception& error, int systemError);
  static StoreError OfDamage(const std::filesystem::path& file);

  /// Whether the content is damaged, as opposed to out of reach.
  bool TellsOfDamage() const { return isDamage; }

  /// Whether another held the file for too long.
  bool TellsOfAnother() const { return isHeld; }

 private:
  bool isDamage = false;
  bool isHeld = false;
};

/// A connection to one SQLite file. Waits for others that hold the file as long as `patience`,
/// which must outlive it, lets it.
class StoreFile {
 public:
  StoreFile(std::filesystem::path file, int flags, Patience& patience);

  /// The result of work(database). What SQLite throws there comes out as StoreError.
  template <typename Work>
  decltype(auto) Use(Work&& work) {
    try {
      return std::forward<Work>(work)(database);
    } catch (const SQLite::Exception& error) {
      throw Translated(error);
    }
  }

  /// Closing then leaves the file and those beside it as they are. Done by itself where damage
  /// shows.
  void LeaveAsItIs();

  /// Throws what tells of damage when the file has been cut off. SQLite does not see that of an
  /// empty file, of one cut in its last page, and while a side file stands beside it. Before
  /// SQLite reads the file; reads its first bytes alone unless it may be whole with a side file.
  void CheckLength();

  /// Reads the whole file. Throws what tells of damage.
  void Check();

  /// Whether the file no longer stands under its name.
  bool HasMoved();

 private:
  void CheckContent();
  StoreError Translated(const SQLite::Exception& error);

  std::filesystem::path path;
  SQLite::Database database;
};

}  // namespace util
