#include "platform/plugins_manager/plugins_manager.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "common/path_text.h"
#include "platform/os/module.h"
#include "platform/os/process_end.h"

namespace {

struct Registration {
  x3::CreateFunction create;
  std::vector<std::string> classIds;
};

struct Loaded {
  std::string path;
  os::ModuleHandle module;
};

struct Manager {
  std::mutex mutex;
  std::vector<Registration> registrations;
  std::vector<Loaded> loaded;
  std::map<std::string, x3::RegistrationCounts> counts;

  static Manager& Instance() {
    static Manager& manager = *new Manager;
    return manager;
  }

  auto Find(x3::CreateFunction create) {
    return std::find_if(registrations.begin(), registrations.end(),
                        [create](const Registration& known) { return known.create == create; });
  }

  x3::CreateFunction FactoryOf(const std::string& classId) {
    const std::lock_guard lock(mutex);
    for (const Registration& known : registrations)
      if (std::count(known.classIds.begin(), known.classIds.end(), classId) > 0)
        return known.create;
    return nullptr;
  }
};

}  // namespace

bool ORV_STDCALL x3RegisterPlugin(x3::CreateFunction create, void*, const char* const* classIds) {
  if (create == nullptr || classIds == nullptr) return false;
  Registration registration{create, {}};
  for (; *classIds != nullptr; ++classIds) registration.classIds.emplace_back(*classIds);

  Manager& manager = Manager::Instance();
  const std::lock_guard lock(manager.mutex);
  if (manager.Find(create) != manager.registrations.end()) return false;
  for (const std::string& classId : registration.classIds) ++manager.counts[classId].registered;
  manager.registrations.push_back(std::move(registration));
  return true;
}

bool ORV_STDCALL x3UnregisterPlugin(x3::CreateFunction create) {
  if (os::IsLastThreadOfEndingProcess()) return false;
  Manager& manager = Manager::Instance();
  const std::lock_guard lock(manager.mutex);
  const auto found = manager.Find(create);
  if (found == manager.registrations.end()) return false;
  for (const std::string& classId : found->classIds) ++manager.counts[classId].unregistered;
  manager.registrations.erase(found);
  return true;
}

bool ORV_STDCALL x3LoadPlugin(const char* path) {
  os::ModuleHandle module = os::LoadModule(common::TextPath(path));
  if (module == nullptr) return false;
  Manager& manager = Manager::Instance();
  const std::lock_guard lock(manager.mutex);
  manager.loaded.push_back({path, module});
  return true;
}

bool ORV_STDCALL x3UnloadPlugin(const char* path) {
  Manager& manager = Manager::Instance();
  os::ModuleHandle module = nullptr;
  {
    const std::lock_guard lock(manager.mutex);
    const auto found = std::find_if(manager.loaded.begin(), manager.loaded.end(),
                                    [path](const Loaded& one) { return one.path == path; });
    if (found == manager.loaded.end()) return false;
    module = found->module;
    manager.loaded.erase(found);
  }
  os::ReleaseModule(module);
  return true;
}

bool ORV_STDCALL x3CreateRegistered(const char* classId, x3::InterfaceId interfaceId,
                                    x3::IObject** out) {
  *out = nullptr;
  const x3::CreateFunction create = Manager::Instance().FactoryOf(classId);
  return create != nullptr && create(classId, interfaceId, out);
}

x3::RegistrationCounts ORV_STDCALL x3CountRegistrations(const char* classId) {
  Manager& manager = Manager::Instance();
  const std::lock_guard lock(manager.mutex);
  const auto found = manager.counts.find(classId);
  return found == manager.counts.end() ? x3::RegistrationCounts{} : found->second;
}
