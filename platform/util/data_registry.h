#pragma once

#include <optional>
#include <string>

namespace util {

/// Registry values in the data store. Names match as they are written. Any thread.
std::optional<std::wstring> ReadDataRegistry(const std::string& root, const std::string& key,
                                             const std::string& name);
bool WriteDataRegistry(const std::string& root, const std::string& key, const std::string& name,
                       const std::wstring& value);

}  // namespace util
