#include "platform/util/data_registry.h"

#include "common/text.h"
#include "platform/util/process_store.h"

namespace util {

std::optional<std::wstring> ReadDataRegistry(const std::string& root, const std::string& key,
                                             const std::string& name) {
  std::optional<std::string> stored;
  ReadStore([&](Store& store) { stored = store.RegistryValue(root, key, name); });
  if (!stored) return std::nullopt;
  return common::Utf8ToWide(*stored);
}

bool WriteDataRegistry(const std::string& root, const std::string& key, const std::string& name,
                       const std::wstring& value) {
  const std::string text = common::WideToUtf8(value);
  return WriteStore([&](Store& store) { store.SetRegistryValue(root, key, name, text); });
}

}  // namespace util
