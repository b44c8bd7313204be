#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace util {

/// A text of the system's own registry, as it is written there: variables in it stay names. On a
/// system without a registry, of the data store. `access` as the system's calls take it. Any
/// thread.
std::optional<std::wstring> ReadSystemRegistry(const std::string& root, const std::string& key,
                                               const std::string& name, std::uint32_t access);

/// Creates a missing key. False when the user may not write there.
bool WriteSystemRegistry(const std::string& root, const std::string& key, const std::string& name,
                         const std::wstring& value, std::uint32_t access);

}  // namespace util
