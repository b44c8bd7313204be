#include "platform/util/system_registry.h"

#include "platform/util/data_registry.h"

namespace util {

std::optional<std::wstring> ReadSystemRegistry(const std::string& root, const std::string& key,
                                               const std::string& name, std::uint32_t /*access*/) {
  return ReadDataRegistry(root, key, name);
}

bool WriteSystemRegistry(const std::string& root, const std::string& key, const std::string& name,
                         const std::wstring& value, std::uint32_t /*access*/) {
  return WriteDataRegistry(root, key, name, value);
}

}  // namespace util
