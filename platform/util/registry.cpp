#include "platform/util/registry.h"

#include <optional>

#include "platform/machine/current.h"
#include "platform/util/data_registry.h"
#include "platform/util/system_registry.h"

namespace DE {
namespace {

// A root in the data store for this described machine alone.
std::string OwnRoot(machine::Machine& described, const std::string& root) {
  return "machine " + described.Identity() + "\\" + root;
}

std::optional<std::wstring> DescribedValue(machine::Machine& described, const std::string& root,
                                           const std::string& key, const std::string& name) {
  std::optional<std::wstring> own = described.RegistryValue(root, key, name);
  return own ? own : util::ReadDataRegistry(OwnRoot(described, root), key, name);
}

}  // namespace

bool Registry::GetValue(const std::string& root, const std::string& key, const std::string& name,
                        std::wstring& value, std::uint32_t access) {
  std::optional<std::wstring> found = machine::IsLive()
                                          ? util::ReadSystemRegistry(root, key, name, access)
                                          : DescribedValue(machine::Current(), root, key, name);
  if (!found) return false;
  value = *std::move(found);
  return true;
}

bool Registry::SetValue(const std::string& root, const std::string& key, const std::string& name,
                        const std::wstring& value, std::uint32_t access) {
  if (machine::IsLive()) return util::WriteSystemRegistry(root, key, name, value, access);
  machine::Machine& described = machine::Current();
  if (described.RegistryValue(root, key, name)) return false;
  return util::WriteDataRegistry(OwnRoot(described, root), key, name, value);
}

}  // namespace DE
