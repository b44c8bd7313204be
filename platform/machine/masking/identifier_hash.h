#pragma once

#include <string>
#include <string_view>

#include "platform/os/export.h"

namespace machine {

/// What stands for a serial number or a hardware address in anything handed to others: "#" and the
/// first twelve hexadecimal digits of the SHA-256 of its UTF-8. Equal identifiers have equal
/// hashes, on every machine and in every version. An empty text stays empty. Any thread.
UTIL_API std::string HashIdentifier(std::string_view identifier);

}  // namespace machine
