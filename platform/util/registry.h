#pragma once

#include <cstdint>
#include <string>

#include "platform/os/export.h"

namespace DE {

/// Values of the registry of the machine in force. The live one's is the system's own or, where the
/// system has none, the data store. A described one has what its description names, and besides
/// what was written for the same description, which the data store keeps apart: looking at a
/// described machine leaves this one and others as they are. Any thread.
class UTIL_API Registry {
 public:
  static constexpr std::uint32_t kAllAccess = 0xF003F;
  static constexpr std::uint32_t kReadAccess = 0x20019;

  /// Root as "HKEY_LOCAL_MACHINE", texts in UTF-8. False when there is no such value or it cannot
  /// be read; what the access mask asks for beyond reading must be granted too.
  static bool GetValue(const std::string& root, const std::string& key, const std::string& name,
                       std::wstring& value, std::uint32_t access);

  /// Creates a missing key. False when the value could not be written, as one that a description
  /// names; the old one stands.
  static bool SetValue(const std::string& root, const std::string& key, const std::string& name,
                       const std::wstring& value, std::uint32_t access);
};

}  // namespace DE
