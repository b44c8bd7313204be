#pragma once

#include <cstdint>

#include "platform/plugins_manager/object.h"

namespace x3 {

/// One class that a module can create.
struct ClassEntry {
  /// 1: a new object for each request. kFirstSingletonType and above: one shared object. 0 ends a
  /// table.
  std::int32_t type;
  const char* className;
  const char* clsid;
  IObject* (*creator)(InterfaceId id);  // null on failure, and in the row that ends a table
  bool (*hasInterface)(InterfaceId id);
};

inline constexpr std::int32_t kOrdinaryType = 1;
inline constexpr std::int32_t kFirstSingletonType = 10;

/// Class tables, each ended by a row without a creator; a null ends the list.
using ClassMap = const ClassEntry* const*;

/// The classes of this module. Each module of the family defines its own.
ClassMap ClassMapList();

}  // namespace x3
