#include "platform/util/store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <stdexcept>
#include <string_view>
#include <variant>

#include "common/path_text.h"
#include "platform/util/damaged_store.h"
#include "platform/util/store_file.h"
#include "platform/util/store_tables.h"

namespace util {
namespace {

// PRAGMA user_version of the tables as they are laid out here. Another layout takes a greater one.
constexpr int kLayoutVersion = 0;

void RefuseNewerLayout(const std::filesystem::path& file, SQLite::Database& database) {
  if (database.execAndGet("PRAGMA user_version").getInt() > kLayoutVersion)
    throw StoreError(file, "was written by a newer version of this program");
}

// SQLite does not wait for the lock when two processes make a new file a WAL one at the same time.
void SwitchToWal(SQLite::Database& database, Patience& patience) {
  while (database.tryExec("PRAGMA journal_mode=WAL") != SQLITE_OK)
    if (database.getErrorCode() != SQLITE_BUSY || !patience.Wait())
      throw SQLite::Exception(database.getHandle());
}

StoreFile OpenWriter(const std::filesystem::path& file, Patience& patience) {
  const bool isThere = std::filesystem::exists(file);
  StoreFile writer(file, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, patience);
  if (isThere) writer.CheckLength();
  writer.Use([&](SQLite::Database& database) {
    RefuseNewerLayout(file, database);
    SwitchToWal(database, patience);
    database.exec("PRAGMA synchronous=FULL");
    database.exec(CreateStatements());
  });
  return writer;
}

int AllowReadingOnly(void*, int action, const char*, const char*, const char*, const char*) {
  const bool reads = action == SQLITE_SELECT || action == SQLITE_READ ||
                     action == SQLITE_FUNCTION || action == SQLITE_RECURSIVE;
  return reads ? SQLITE_OK : SQLITE_DENY;
}

StoreFile OpenReader(const std::filesystem::path& file, Patience& patience) {
  StoreFile reader(file, SQLite::OPEN_READONLY, patience);
  // A read-only connection would still attach other files or write a copy of this one.
  reader.Use([](SQLite::Database& database) {
    sqlite3_set_authorizer(database.getHandle(), AllowReadingOnly, nullptr);
    database.execAndGet("SELECT COUNT(*) FROM sqlite_master");  // opens the side files now
  });
  return reader;
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

void Insert(SQLite::Database& database, const StoreTable& table, const Store::Row& row) {
  // A single statement outside BEGIN is a transaction of its own, durable when it returns.
  SQLite::Statement insert(database, InsertStatement(table));
  for (std::size_t i = 0; i < row.size(); ++i) BindCell(insert, static_cast<int>(i) + 1, row[i]);
  insert.exec();
}

std::vector<Store::Row> Select(SQLite::Database& database, const std::string& query) {
  std::vector<Store::Row> found;
  SQLite::Statement select(database, query);
  RefuseSecondStatement(database, query);
  while (select.executeStep()) {
    Store::Row& row = found.emplace_back();
    for (int i = 0; i < select.getColumnCount(); ++i) row.push_back(ReadCell(select.getColumn(i)));
  }
  return found;
}

void WriteRegistryRow(SQLite::Database& database, const std::string& conflict,
                      const RegistryRow& row) {
  SQLite::Statement insert(database,
                           "INSERT OR " + conflict + " INTO REGISTRY VALUES (?, ?, ?, ?)");
  for (std::size_t i = 0; i < row.size(); ++i) insert.bind(static_cast<int>(i) + 1, row[i]);
  insert.exec();
}

}  // namespace

struct Store::Connections {
  Connections(const std::filesystem::path& file, Patience& patience)
      : writer(OpenWriter(file, patience)), reader(OpenReader(file, patience)) {}

  StoreFile writer;
  StoreFile reader;
};

Store::Store(const std::filesystem::path& folder, std::function<void(const std::string&)> tell)
    : file(folder / "store.db"), told(std::move(tell)) {}
Store::~Store() = default;

Store::Connections& Store::Open() {
  while (!connections || connections->writer.HasMoved()) {
    connections.reset();
    const std::optional<StoreFile> names = KeepNames(file, patience);
    connections = std::make_unique<Connections>(file, patience);
  }
  return *connections;
}

void Store::ReplaceDamaged() {
  if (connections) {
    connections->writer.LeaveAsItIs();
    connections->reader.LeaveAsItIs();
    connections.reset();
  }
  const std::optional<DamagedStore> damaged = SetAsideDamagedStore(file, patience);
  if (!damaged) return;
  if (told)
    told(damaged->damage + "; it is kept as " + common::PathText(damaged->keptAs.filename()) +
         ", and the history begins anew");
  Open().writer.Use([&damaged](SQLite::Database& database) {
    SQLite::Transaction transaction(database);
    for (const RegistryRow& row : damaged->registry) WriteRegistryRow(database, "IGNORE", row);
    transaction.commit();
  });
}

template <typename Work>
void Store::MendAndRetry(Work work) {
  try {
    work(Open());
  } catch (const StoreError& error) {
    if (error.TellsOfDamage())
      ReplaceDamaged();
    else if (!connections || !connections->writer.HasMoved())
      throw;
    work(Open());
  }
  patience.Renew();
}

template <typename Work>
void Store::Read(Work work) {
  const std::lock_guard lock(mutex);
  if (!patience.IsUsedUp()) patience.Renew();
  MendAndRetry([&work](Connections& open) { open.reader.Use(work); });
}

template <typename Work>
void Store::Write(Work work) {
  const std::lock_guard lock(mutex);
  patience.Renew();
  MendAndRetry([&](Connections& open) {
    open.writer.Use(work);
    // Written into a store that another process was setting aside: once more, into the new one.
    if (open.writer.HasMoved()) Open().writer.Use(work);
  });
}

void Store::Put(const std::string& table, const Row& row) {
  const StoreTable* layout = FindStoreTable(table);
  if (layout == nullptr) throw std::invalid_argument("no table " + table);
  CheckCells(*layout, row);
  Write([&](SQLite::Database& database) { Insert(database, *layout, row); });
}

void Store::Get(const std::string& query, std::vector<Row>& rows) {
  std::vector<Row> found;
  Read([&](SQLite::Database& database) { found = Select(database, query); });
  rows.insert(rows.end(), std::make_move_iterator(found.begin()),
              std::make_move_iterator(found.end()));
}

std::optional<std::string> Store::RegistryValue(const std::string& root, const std::string& key,
                                                const std::string& name) {
  std::optional<std::string> value;
  Read([&](SQLite::Database& database) {
    SQLite::Statement select(database,
                             "SELECT value FROM REGISTRY WHERE root = ? AND key = ? AND name = ?");
    select.bind(1, root);
    select.bind(2, key);
    select.bind(3, name);
    if (select.executeStep()) value = select.getColumn(0).getString();
  });
  return value;
}

void Store::SetRegistryValue(const std::string& root, const std::string& key,
                             const std::string& name, const std::string& value) {
  Write([&](SQLite::Database& database) {
    WriteRegistryRow(database, "REPLACE", {root, key, name, value});
  });
}

}  // namespace util
