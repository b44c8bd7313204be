#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/os/export.h"

namespace util {

/// The serial numbers and MAC addresses of the machine in force, as its libraries tell them; a MAC
/// address without separators too. Asks the machine: may take seconds. Any thread.
UTIL_API std::vector<std::string> MachineIdentifiers();

/// The text with every MAC address (six pairs of hexadecimal digits with ":" or "-" between) and
/// every one of these identifiers, where it stands as a word of its own, replaced by its hash.
UTIL_API std::string HashIdentifiers(std::string_view text,
                                     const std::vector<std::string>& identifiers);

}  // namespace util
