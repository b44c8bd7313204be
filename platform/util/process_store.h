#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/os/export.h"
#include "platform/util/store.h"

// The store of the data folder, one a process, and what has become of its calls. Any thread.
namespace util {

/// Lets `use` read or write the store. What it throws becomes false and an error line in the log;
/// reads that fail one after another for the same reason leave one line.
bool ReadStore(const std::function<void(Store&)>& use);
bool WriteStore(const std::function<void(Store&)>& use);

/// Why the last write failed; empty when it did not.
UTIL_API std::string StoreWriteFault();

/// Why a read has failed since this was last called; empty when none has.
UTIL_API std::string TakeStoreReadFault();

/// One sentence for each damaged store that this process has set aside. It names the file.
UTIL_API std::vector<std::string> StoreNotices();

}  // namespace util
