#include "platform/util/data_manager.h"

#include "platform/util/process_store.h"

DataManager& DataManager::Instance() {
  static auto& manager = *new DataManager;
  return manager;
}

bool DataManager::Put(const std::string& table, const Row& row) {
  return util::WriteStore([&](util::Store& store) { store.Put(table, row); });
}

bool DataManager::Get(const std::string& query, emReturnOrder /*order*/, std::vector<Row>& rows) {
  return util::ReadStore([&](util::Store& store) { store.Get(query, rows); });
}
