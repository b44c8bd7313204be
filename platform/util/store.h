#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/util/data_manager.h"

namespace util {

/// The tables of one folder's store.db. Opened by the first call, created if missing. Any thread;
/// several processes may use one folder. Every function throws a std::exception that says what is
/// wrong, and has changed nothing then.
class Store {
 public:
  using Row = DataManager::Row;

  explicit Store(const std::filesystem::path& folder);
  ~Store();

  void Put(const std::string& table, const Row& row);
  void Get(const std::string& query, std::vector<Row>& rows);

  /// Texts in UTF-8.
  std::optional<std::string> RegistryValue(const std::string& root, const std::string& key,
                                           const std::string& name);
  void SetRegistryValue(const std::string& root, const std::string& key, const std::string& name,
                        const std::string& value);

 private:
  struct Connections;
  Connections& Open();

  const std::filesystem::path file;
  std::mutex mutex;
  std::unique_ptr<Connections> connections;  // guarded by mutex
};

/// Lets `use` work with the store of the data folder. What it throws becomes false and one log
/// line.
bool UseStore(const std::function<void(Store&)>& use);

}  // namespace util
