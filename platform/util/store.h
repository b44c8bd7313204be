#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/util/data_manager.h"
#include "platform/util/patience.h"

namespace util {

/// The tables of one folder's store.db. Opened by the first call, created if missing; a damaged one
/// is set aside for a new one. Any thread; several processes may use one folder. Every function
/// throws a std::exception that says what is wrong, and has changed nothing then. A call waits ten
/// seconds at most for other programs; a reading one does not wait at all after one that waited in
/// vain, until a call has gone well.
class Store {
 public:
  using Row = DataManager::Row;

  /// `told` is called with one sentence for people when a damaged store has been set aside.
  explicit Store(const std::filesystem::path& folder,
                 std::function<void(const std::string&)> told = {});
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
  template <typename Work>
  void Read(Work work);
  template <typename Work>
  void Write(Work work);
  template <typename Work>
  void MendAndRetry(Work work);
  Connections& Open();
  void ReplaceDamaged();

  const std::filesystem::path file;
  const std::function<void(const std::string&)> told;
  std::mutex mutex;
  Patience patience;                         // guarded by mutex
  std::unique_ptr<Connections> connections;  // guarded by mutex; goes before the patience
};

}  // namespace util
