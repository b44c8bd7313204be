#include "platform/util/store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <chrono>
#include <stdexcept>
#include <string_view>
#include <variant>

#include "common/log.h"
#include "common/path_text.h"
#include "platform/os/clock.h"
#include "platform/os/paths.h"
#include "platform/util/store_tables.h"

namespace util {
namespace {

constexpr int kBusyTimeoutMs = 10'000;
constexpr std::chrono::milliseconds kWalRetryPause{100};

// SQLite does not wait for the lock when two processes make a new file a WAL one at the same time.
void SwitchToWal(SQLite::Database& database) {
  for (auto waited = std::chrono::milliseconds::zero();; waited += kWalRetryPause) {
    if (database.tryExec("PRAGMA journal_mode=WAL") == SQLITE_OK) return;
    if (database.getErrorCode() != SQLITE_BUSY || waited.count() >= kBusyTimeoutMs)
      throw SQLite::Exception(database.getHandle());
    os::CurrentClock().Sleep(kWalRetryPause);
  }
}

SQLite::Database OpenWriter(const std::string& file) {
  SQLite::Database database(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, kBusyTimeoutMs);
  SwitchToWal(database);
  database.exec("PRAGMA synchronous=FULL");
  database.exec(CreateStatements());
  return database;
}

int AllowReadingOnly(void*, int action, const char*, const char*, const char*, const char*) {
  const bool reads = action == SQLITE_SELECT || action == SQLITE_READ ||
                     action == SQLITE_FUNCTION || action == SQLITE_RECURSIVE;
  return reads ? SQLITE_OK : SQLITE_DENY;
}

SQLite::Database OpenReader(const std::string& file) {
  SQLite::Database database(file, SQLite::OPEN_READONLY, kBusyTimeoutMs);
  // A read-only connection would still attach other files or write a copy of this one.
  sqlite3_set_authorizer(database.getHandle(), AllowReadingOnly, nullptr);
  return database;
}

void CheckCells(const StoreTable& table, const Store::Row& row) {
  const std::string name(table.name);
  if (row.size() != table.columns.size())
    throw std::invalid_argument(name + ": " + std::to_string(row.size()) + " cells instead of " +
                                std::to_string(table.columns.size()));
  for (std::size_t i = 0; i < row.size(); ++i) {
    const bool isInteger = table.columns[i].type == CellType::Integer;
    if (row[i].type() != (isInteger ? typeid(std::int64_t) : typeid(std::string)))
      throw std::invalid_argument(name + ": cell " + std::to_string(i) + " (" +
                                  std::string(table.columns[i].name) + ") is not " +
                                  (isInteger ? "a 64-bit integer" : "a text"));
  }
}

void BindCell(SQLite::Statement& statement, int parameter, const linb::any& cell) {
  if (const auto* text = linb::any_cast<std::string>(&cell)) {
    statement.bind(parameter, *text);
  } else {
    statement.bind(parameter, linb::any_cast<std::int64_t>(cell));
  }
}

linb::any ReadCell(const SQLite::Column& column) {
  if (column.isInteger()) return std::int64_t{column.getInt64()};
  if (column.isFloat()) return column.getDouble();
  if (column.isNull()) return std::monostate{};
  return column.getString();
}

void RefuseSecondStatement(SQLite::Database& database, const std::string& query) {
  sqlite3_stmt* first = nullptr;
  const char* rest = "";
  sqlite3_prepare_v2(database.getHandle(), query.c_str(), -1, &first, &rest);
  const std::string_view tail = rest;
  sqlite3_finalize(first);
  if (tail.find_first_not_of("; \t\r\n") != std::string_view::npos)
    throw std::invalid_argument("more than one statement in a query");
}

Store& ProcessStore() {
  static Store& store = *new Store(os::DataFolder());
  return store;
}

}  // namespace

struct Store::Connections {
  explicit Connections(const std::string& file)
      : writer(OpenWriter(file)), reader(OpenReader(file)) {}

  SQLite::Database writer;
  SQLite::Database reader;
};

Store::Store(const std::filesystem::path& folder) : file(folder / "store.db") {}
Store::~Store() = default;

Store::Connections& Store::Open() {
  if (connections) return *connections;
  try {
    connections = std::make_unique<Connections>(common::PathText(file));
  } catch (const SQLite::Exception& error) {
    throw std::runtime_error(common::PathText(file) + ": " + error.what());
  }
  return *connections;
}

void Store::Put(const std::string& table, const Row& row) {
  const StoreTable* layout = FindStoreTable(table);
  if (layout == nullptr) throw std::invalid_argument("no table " + table);
  CheckCells(*layout, row);
  const std::lock_guard lock(mutex);
  // A single statement outside BEGIN is a transaction of its own, durable when it returns.
  SQLite::Statement insert(Open().writer, InsertStatement(*layout));
  for (std::size_t i = 0; i < row.size(); ++i) BindCell(insert, static_cast<int>(i) + 1, row[i]);
  insert.exec();
}

void Store::Get(const std::string& query, std::vector<Row>& rows) {
  std::vector<Row> found;
  {
    const std::lock_guard lock(mutex);
    SQLite::Database& reader = Open().reader;
    SQLite::Statement select(reader, query);
    RefuseSecondStatement(reader, query);
    while (select.executeStep()) {
      Row& row = found.emplace_back();
      for (int i = 0; i < select.getColumnCount(); ++i)
        row.push_back(ReadCell(select.getColumn(i)));
    }
  }
  rows.insert(rows.end(), std::make_move_iterator(found.begin()),
              std::make_move_iterator(found.end()));
}

std::optional<std::string> Store::RegistryValue(const std::string& root, const std::string& key,
                                                const std::string& name) {
  const std::lock_guard lock(mutex);
  SQLite::Statement select(Open().reader,
                           "SELECT value FROM REGISTRY WHERE root = ? AND key = ? AND name = ?");
  select.bind(1, root);
  select.bind(2, key);
  select.bind(3, name);
  if (!select.executeStep()) return std::nullopt;
  return select.getColumn(0).getString();
}

void Store::SetRegistryValue(const std::string& root, const std::string& key,
                             const std::string& name, const std::string& value) {
  const std::lock_guard lock(mutex);
  SQLite::Statement replace(Open().writer, "INSERT OR REPLACE INTO REGISTRY VALUES (?, ?, ?, ?)");
  replace.bind(1, root);
  replace.bind(2, key);
  replace.bind(3, name);
  replace.bind(4, value);
  replace.exec();
}

bool UseStore(const std::function<void(Store&)>& use) {
  try {
    use(ProcessStore());
    return true;
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.util"),
                     "data store: " + std::string(error.what()));
    return false;
  }
}

}  // namespace util
