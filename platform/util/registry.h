#pragma once

#include <cstdint>
#include <string>

#include "platform/os/export.h"

namespace DE {

/// Values of the registry: what this process has written, then what the machine in force holds,
/// then the live machine's own registry. Where the system has none, and for a machine that a file
/// describes, they live in the data store instead, so that looking at a described machine leaves
/// this one as it is. Any thread.
class UTIL_API Registry {
 public:
  static constexpr std::uint32_t kAllAccess = 0xF003F;

  /// Root as "HKEY_LOCAL_MACHINE", texts in UTF-8. False when there is no such value or it cannot
  /// be read; what the access mask asks for beyond reading must be granted too.
  static bool GetValue(const std::string& root, const std::string& key, const std::string& name,
                       std::wstring& value, std::uint32_t access);

  /// Creates a missing key. False when the value could not be written; the old one stands.
  static bool SetValue(const std::string& root, const std::string& key, const std::string& name,
                       const std::wstring& value, std::uint32_t access);
};

}  // namespace DE
