#pragma once

#include <filesystem>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/os/export.h"

namespace DuiLib {

using CDuiString = std::wstring;

/// The culture table: string ids ("IDS_...") to texts in the language of the user interface.
/// Any thread: a look-up sees the table before or after a change of language.
class DUILIB_API UICulture {
 public:
  static UICulture* GetInstance();

  /// Loads culture/<language>.xml from the resource folder, with en-US behind it for ids it does
  /// not name. The language "ids" needs no file: every id is its own text. Throws
  /// std::runtime_error naming the file and reason; the table is then as it was. Until the first
  /// call the table is that of en-US, or empty when its file cannot be read.
  void SetLanguage(const std::string& language, const std::filesystem::path& resources);

  /// The text of an id as it stands in the table, placeholders included; an id that no table names
  /// is its own text.
  CDuiString GetString(const CDuiString& id) const;

  /// The text of an id with its placeholders {0}, {1}, ... filled; empty when the text is not a
  /// message pattern.
  CDuiString GetMultiVarStr(const CDuiString& id, const std::vector<CDuiString>& arguments) const;

  /// The text that a bind expression "bind='<id>'" stands for; any other text stands for itself.
  CDuiString ParseBind(const CDuiString& expression) const;

 private:
  struct Table;
  UICulture();
  ~UICulture();

  std::shared_ptr<const Table> InUse() const;

  mutable std::mutex mutex;
  mutable std::shared_ptr<const Table> table;  // null until it is asked for or set
};

}  // namespace DuiLib
