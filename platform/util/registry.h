#pragma once

#include <cstdint>
#include <string>

#include "platform/os/export.h"

namespace DE {

/// Values of the registry. Where the system has none they live in the data store, behind the values
/// that the machine in force holds; a value written by this process stands before both. Any thread.
class UTIL_API Registry {
 public:
  static constexpr std::uint32_t kAllAccess = 0xF003F;

  /// Root as "HKEY_LOCAL_MACHINE". False when there is no such value or it cannot be read.
  static bool GetValue(const std::string& root, const std::string& key, const std::string& name,
                       std::wstring& value, std::uint32_t access);
  static bool SetValue(const std::string& root, const std::string& key, const std::string& name,
                       const std::wstring& value, std::uint32_t access);
};

}  // namespace DE
