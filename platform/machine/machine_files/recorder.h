#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "platform/machine/interface/machine.h"
#include "platform/os/export.h"

namespace machine {

struct RecordRequest {
  bool withTests = false;  // all tests, which may take minutes
  bool plain = false;      // serial numbers and MAC addresses as they are, not hashed
  std::vector<std::string> installedShelf;  // recorded unless the machine has a shelf of its own
  std::map<std::array<std::string, 3>, std::wstring> registry;  // values by root, key and name
};

/// Makes every library call once, but no repair, and returns the answers as the text of a machine
/// file, which names only what differs from the default answers. A test that throws is recorded as
/// throwing. Without the tests only the two are made that the information sheets ask for. SMART
/// tests are made once for each disk of their kind. Throws what another call throws.
UTIL_API std::string RecordMachine(Machine& machine, const RecordRequest& request);

}  // namespace machine
