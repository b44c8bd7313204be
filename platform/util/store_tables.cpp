#include "platform/util/store_tables.h"

#include <array>

namespace util {
namespace {

constexpr auto kHistoryColumns = std::to_array<Column>({
    {"Cpu", CellType::Integer},
    {"Motherboard", CellType::Integer},
    {"Memory", CellType::Integer},
    {"Disk", CellType::Integer},
    {"Gpu", CellType::Integer},
    {"Display", CellType::Integer},
    {"Audio", CellType::Integer},
    {"Network", CellType::Integer},
    {"Bluetooth", CellType::Integer},
    {"Battery", CellType::Integer},
    {"Keyboard", CellType::Integer},
    {"Fingerprint", CellType::Integer},
    {"PassCount", CellType::Integer},
    {"FailCount", CellType::Integer},
    {"Date", CellType::Text},
    {"DateTime", CellType::Text},
    {"SecondTime", CellType::Integer},
});
static_assert(kHistoryColumns.size() == 17);

constexpr auto kTables = std::to_array<StoreTable>({
    {"TABLE_HARDWARE_DIAGNOSE", kHistoryColumns, "SecondTime"},
});

constexpr std::string_view kCreateRegistry =
    "CREATE TABLE IF NOT EXISTS REGISTRY (root TEXT NOT NULL, key TEXT NOT NULL, "
    "name TEXT NOT NULL, value TEXT NOT NULL, PRIMARY KEY (root, key, name));";

std::string CreateStatement(const StoreTable& table) {
  const std::string name(table.name);
  const std::string indexed(table.indexed);
  std::string columns;
  for (const Column& column : table.columns) {
    if (!columns.empty()) columns += ", ";
    columns += column.name;
    columns += column.type == CellType::Integer ? " INTEGER NOT NULL" : " TEXT NOT NULL";
  }
  return "CREATE TABLE IF NOT EXISTS " + name + " (" + columns + ");" +
         "CREATE INDEX IF NOT EXISTS " + name + "_" + indexed + " ON " + name + " (" + indexed +
         ");";
}

}  // namespace

const StoreTable* FindStoreTable(std::string_view name) {
  for (const StoreTable& table : kTables)
    if (table.name == name) return &table;
  return nullptr;
}

std::string CreateStatements() {
  std::string statements(kCreateRegistry);
  for (const StoreTable& table : kTables) statements += CreateStatement(table);
  return statements;
}

std::string InsertStatement(const StoreTable& table) {
  std::string parameters = "?";
  for (std::size_t i = 1; i < table.columns.size(); ++i) parameters += ", ?";
  return "INSERT INTO " + std::string(table.name) + " VALUES (" + parameters + ")";
}

}  // namespace util
