#pragma once

#include <span>
#include <string>
#include <string_view>

namespace util {

enum class CellType { Integer, Text };

struct Column {
  std::string_view name;
  CellType type;
};

/// A table of positional cells, the columns in cell order.
struct StoreTable {
  std::string_view name;
  std::span<const Column> columns;
  std::string_view indexed;  // column with an index, not a unique one
};

/// The table of that name, or null. docs/history.md describes the tables.
const StoreTable* FindStoreTable(std::string_view name);

/// Statements that create all tables and indexes which are not there yet.
std::string CreateStatements();

/// A statement with one parameter per column.
std::string InsertStatement(const StoreTable& table);

}  // namespace util
