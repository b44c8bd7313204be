#pragma once

#include <cstdint>
#include <string>

#include "platform/util/data_manager.h"

inline constexpr const char* kHistoryTable = "TABLE_HARDWARE_DIAGNOSE";

// A full row: eleven untested categories, the processor passed.
inline DataManager::Row HistoryRow(std::int64_t secondTime) {
  DataManager::Row row{std::int64_t{0}};
  while (row.size() < 12) row.emplace_back(std::int64_t{-1});
  row.emplace_back(std::int64_t{1});
  row.emplace_back(std::int64_t{0});
  row.emplace_back(std::string("2024.03.09"));
  row.emplace_back(std::string("2024.03.09.10.11.12"));
  row.emplace_back(secondTime);
  return row;
}
