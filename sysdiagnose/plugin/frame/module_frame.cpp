#include "sysdiagnose/plugin/frame/module_frame.h"

#include <algorithm>
#include <cstring>

namespace x3 {
namespace {

constexpr const char* kManagerName = "PluginsManager.dll";

// Calls `visit` for each row in order until it returns true; returns that row or null.
template <typename Visit>
const ClassEntry* FindRow(ClassMap tables, Visit visit) {
  for (; *tables != nullptr; ++tables)
    for (const ClassEntry* row = *tables; row->creator != nullptr; ++row)
      if (visit(*row)) return row;
  return nullptr;
}

template <typename Function>
Function ProcedureOf(os::ModuleHandle module, const char* name) {
  return reinterpret_cast<Function>(os::FindProcedure(module, name));
}

}  // namespace

void SingletonStore::Prepare(std::int32_t count) {
  if (objects != nullptr || count < 1) return;
  capacity = std::max(count, capacity);
  firstIndex = capacity;
  objects = new IObject* [static_cast<std::size_t>(capacity)] {};
}

void SingletonStore::Destroy() {
  if (objects == nullptr) return;
  for (std::int32_t i = firstIndex; i < capacity; ++i) {
    delete objects[i];
    objects[i] = nullptr;
  }
  firstIndex = 0;
  delete[] objects;
  objects = nullptr;
}

bool ModuleFrame::Init(os::ModuleHandle own, os::ModuleHandle manager) {
  if (++initCount != 1) return true;

  std::int32_t singletonCount = 0;
  FindRow(classes(), [&](const ClassEntry& row) {
    if (row.type >= kFirstSingletonType) ++singletonCount;
    return false;
  });
  singletons.Prepare(singletonCount);
  FindInterface(IdOf<IObject>());  // makes each class compute its identifiers now

  ownModule = own;
  FindManager(manager);
  if (managerModule != nullptr && managerModule != ownModule) Register();
  return true;
}

bool ModuleFrame::Free() {
  if (initCount-- != 1) return false;
  if (managerModule != nullptr && managerModule != ownModule) {
    const auto unregister = ProcedureOf<UnregisterFunction>(managerModule, "x3UnregisterPlugin");
    if (unregister != nullptr) unregister(create);
  }
  if (managerLoadedHere) {
    os::ReleaseModule(managerModule);
    managerLoadedHere = false;
  }
  singletons.Destroy();
  return true;
}

bool ModuleFrame::Create(const char* classId, InterfaceId interfaceId, IObject** out) const {
  *out = nullptr;
  if (*classId == '\0')
    if (const ClassEntry* first = FindInterface(interfaceId)) classId = first->clsid;
  const ClassEntry* row = FindClass(classId);
  if (row != nullptr) *out = row->creator(interfaceId);
  return *out != nullptr;
}

void ModuleFrame::FindManager(os::ModuleHandle given) {
  if (managerModule != nullptr) return;
  managerModule = given != nullptr ? given : os::FindLoadedModule(kManagerName);
  if (managerModule != nullptr) return;
  managerModule = os::LoadModule(kManagerName);
  managerLoadedHere = managerModule != nullptr;
}

void ModuleFrame::Register() {
  const auto registerPlugin = ProcedureOf<RegisterFunction>(managerModule, "x3RegisterPlugin");
  if (registerPlugin == nullptr) return;

  std::array<const char*, kMaxClassIds + 1> classIds{};
  std::size_t filled = 0;
  for (ClassMap table = classes(); *table != nullptr && filled < kMaxClassIds; ++table)
    for (const ClassEntry* row = *table; row->creator != nullptr && filled < kMaxClassIds; ++row)
      classIds[filled++] = row->clsid;
  registerPlugin(create, ownModule, classIds.data());
}

const ClassEntry* ModuleFrame::FindClass(const char* classId) const {
  return FindRow(classes(),
                 [classId](const ClassEntry& row) { return std::strcmp(row.clsid, classId) == 0; });
}

const ClassEntry* ModuleFrame::FindInterface(InterfaceId id) const {
  return FindRow(classes(), [id](const ClassEntry& row) { return row.hasInterface(id); });
}

}  // namespace x3
