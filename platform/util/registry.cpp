#include "platform/util/registry.h"

#include <map>
#include <mutex>
#include <optional>
#include <tuple>

#include "platform/machine/current.h"
#include "platform/util/data_registry.h"
#include "platform/util/system_registry.h"

namespace DE {
namespace {

struct WrittenValues {
  std::mutex mutex;
  std::map<std::tuple<std::string, std::string, std::string>, std::wstring> values;
};

WrittenValues& Written() {
  static auto& written = *new WrittenValues;
  return written;
}

std::optional<std::wstring> WrittenValue(const std::string& root, const std::string& key,
                                         const std::string& name) {
  WrittenValues& written = Written();
  const std::lock_guard lock(written.mutex);
  const auto found = written.values.find({root, key, name});
  if (found == written.values.end()) return std::nullopt;
  return found->second;
}

}  // namespace

// A described machine has nothing to do with the registry of the system that it is looked at on.
bool Registry::GetValue(const std::string& root, const std::string& key, const std::string& name,
                        std::wstring& value, std::uint32_t access) {
  std::optional<std::wstring> found = WrittenValue(root, key, name);
  if (!found) found = machine::Current().RegistryValue(root, key, name);
  if (!found)
    found = machine::IsLive() ? util::ReadSystemRegistry(root, key, name, access)
                              : util::ReadDataRegistry(root, key, name);
  if (!found) return false;
  value = *std::move(found);
  return true;
}

bool Registry::SetValue(const std::string& root, const std::string& key, const std::string& name,
                        const std::wstring& value, std::uint32_t access) {
  const bool isWritten = machine::IsLive()
                             ? util::WriteSystemRegistry(root, key, name, value, access)
                             : util::WriteDataRegistry(root, key, name, value);
  if (!isWritten) return false;
  WrittenValues& written = Written();
  const std::lock_guard lock(written.mutex);
  written.values[{root, key, name}] = value;
  return true;
}

}  // namespace DE
