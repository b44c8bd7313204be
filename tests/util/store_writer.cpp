// store_writer <data folder> <first> <count>: saves rows with consecutive SecondTime and prints
// each one once it is acknowledged. Ends with 1, and says why, when a row is not saved.

#include <cstdlib>
#include <iostream>

#include "common/path_text.h"
#include "platform/os/paths.h"
#include "platform/util/process_store.h"
#include "tests/support/history_row.h"

int main(int argumentCount, char** arguments) {
  if (argumentCount != 4) return 2;
  os::SetDataFolder(common::TextPath(arguments[1]));
  const std::int64_t first = std::atoll(arguments[2]);
  const std::int64_t count = std::atoll(arguments[3]);
  for (std::int64_t second = first; second < first + count; ++second) {
    if (!DataManager::Instance().Put(kHistoryTable, HistoryRow(second))) {
      std::cerr << util::StoreWriteFault() << std::endl;
      return 1;
    }
    std::cout << second << std::endl;
  }
  return 0;
}
