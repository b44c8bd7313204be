#pragma once

#include <string>
#include <string_view>

#include "platform/os/export.h"

namespace util {

/// What stands for an identifier (a serial number, a MAC address) where the identifier itself is
/// not to be told: "#" and the first 12 hexadecimal digits of its SHA-256. The same identifier
/// always gives the same text.
UTIL_API std::string HashIdentifier(std::string_view identifier);

}  // namespace util
