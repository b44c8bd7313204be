#include "platform/util/registry.h"

#include <map>
#include <mutex>
#include <optional>
#include <tuple>

#include "common/text.h"
#include "platform/machine/machine.h"
#include "platform/util/store.h"

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

std::optional<std::wstring> StoredValue(const std::string& root, const std::string& key,
                                        const std::string& name) {
  std::optional<std::string> stored;
  util::UseStore([&](util::Store& store) { stored = store.RegistryValue(root, key, name); });
  if (!stored) return std::nullopt;
  return common::Utf8ToWide(*stored);
}

}  // namespace

bool Registry::GetValue(const std::string& root, const std::string& key, const std::string& name,
                        std::wstring& value, std::uint32_t /*access*/) {
  std::optional<std::wstring> found = WrittenValue(root, key, name);
  if (!found) found = machine::Current().RegistryValue(root, key, name);
  if (!found) found = StoredValue(root, key, name);
  if (!found) return false;
  value = *std::move(found);
  return true;
}

bool Registry::SetValue(const std::string& root, const std::string& key, const std::string& name,
                        const std::wstring& value, std::uint32_t /*access*/) {
  const std::string text = common::WideToUtf8(value);
  if (!util::UseStore([&](util::Store& store) { store.SetRegistryValue(root, key, name, text); }))
    return false;
  WrittenValues& written = Written();
  const std::lock_guard lock(written.mutex);
  written.values[{root, key, name}] = value;
  return true;
}

}  // namespace DE
