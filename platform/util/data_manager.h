#pragma once

#include <string>
#include <vector>

#include "platform/os/export.h"
#include "platform/util/any.h"

/// Order of a query's rows. The rows come in the order the query gives them.
enum emReturnOrder { RETURN_ORDER_DEFAULT = 1 };

/// The process-wide data store: tables of positional cells in store.db of the data folder. An
/// integer cell is a std::int64_t, a text cell a std::string in UTF-8. Any thread; several
/// processes may use the store at once.
///
/// A row that Put has acknowledged survives a crash and a power cut.
class UTIL_API DataManager {
 public:
  using Row = std::vector<linb::any>;

  static DataManager& Instance();

  /// Appends a row. False, with a log line, when the table is unknown, the number or type of cells
  /// does not fit it, or the store cannot be written; nothing is changed then.
  bool Put(const std::string& table, const Row& row);

  /// Appends all rows of a query's result. The query cannot change the store. False when it cannot
  /// be run, with a log line unless the query before failed for the same reason.
  bool Get(const std::string& query, emReturnOrder order, std::vector<Row>& rows);
};
