#include "manager/host/plugin.h"

#include <exception>
#include <stdexcept>
#include <utility>

#include "common/log.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/plugins_manager/plugins_manager.h"

namespace manager {
namespace {

constexpr const char* kInstalled = "SysdiagnosePlugin.dll";
constexpr const char* kPluginsManager = "PluginsManager.dll";
constexpr const char* kCreateObject = "x3CreateObject";
constexpr const char* kExports[] = {"x3InitializePlugin", "x3UninitializePlugin", "x3InitPlugin",
                                    "x3FreePlugin",       "x3InternalCreate",     kCreateObject};

// Never given back: it stays in the process.
os::ModuleHandle LoadPluginsManager() {
  const os::ModuleHandle module = os::LoadModule(kPluginsManager);
  if (module != nullptr) return module;
  throw std::runtime_error(common::PathText(os::LibraryFile(kPluginsManager)) +
                           ": the plugin manager cannot be loaded");
}

template <typename Function>
Function Procedure(os::ModuleHandle module, const char* name) {
  return reinterpret_cast<Function>(os::FindProcedure(module, name));
}

std::string FullName(const std::filesystem::path& library) {
  return common::PathText(std::filesystem::absolute(library));
}

}  // namespace

std::filesystem::path Plugin::FileOf(const std::filesystem::path& named) {
  return named.empty() ? os::LibraryFile(kInstalled) : named;
}

Plugin::Plugin(const std::filesystem::path& library)
    : file(FullName(library)), pluginsManager(LoadPluginsManager()) {
  if (!std::filesystem::exists(library)) Fail("there is no such file");
  const auto load = Procedure<x3::LoadPluginFunction>(pluginsManager, "x3LoadPlugin");
  if (load == nullptr) Fail("the plugin manager has no x3LoadPlugin");
  loaded = load(file.c_str());
  if (!loaded) Fail("the plugin cannot be loaded");
  try {
    RequireExports();
    Create();
  } catch (...) {
    LetGoLogged();
    throw;
  }
}

Plugin::~Plugin() {
  LetGoLogged();
}

// What is wrong with it already has been told, or is not asked for.
void Plugin::LetGoLogged() {
  try {
    LetGo();
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.manager"), error.what());
  }
}

void Plugin::CreateUI(PageCreationContext& context) {
  bool accepted = false;
  Call("CreateUI", [&] { accepted = object->CreateUI(&context); });
  if (!accepted) Fail("CreateUI failed");
}

void Plugin::LetGo() {
  IQVXUIPlugin* const last = std::exchange(object, nullptr);
  try {
    if (last != nullptr) Call("Release", [last] { last->Release(); });
  } catch (...) {
    Unload();
    throw;
  }
  Unload();
}

bool Plugin::IsInProcess(const std::filesystem::path& library) {
  return os::FindLoadedModule(FullName(library).c_str()) != nullptr;
}

void Plugin::RequireExports() const {
  const os::ModuleHandle module = os::FindLoadedModule(file.c_str());
  for (const char* const name : kExports)
    if (os::FindProcedure(module, name) == nullptr)
      Fail(std::string("no ") + name + " is exported");
}

void Plugin::Create() {
  const auto create =
      Procedure<x3::CreateFunction>(os::FindLoadedModule(file.c_str()), kCreateObject);
  x3::IObject* made = nullptr;
  Call(kCreateObject, [&] { create("", x3::IdOf<IQVXUIPlugin>(), &made); });
  if (made == nullptr) Fail("it has no class that contributes pages");
  object = static_cast<IQVXUIPlugin*>(made);
  std::wstring key;
  Call("PluginKey", [&] { key = object->PluginKey(); });
  COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.manager"),
                  file + ": loaded as " + common::WideToUtf8(key));
}

void Plugin::Unload() {
  const auto unload = Procedure<x3::LoadPluginFunction>(pluginsManager, "x3UnloadPlugin");
  if (std::exchange(loaded, false) && unload != nullptr) unload(file.c_str());
}

// What was thrown is destroyed here, while the plugin is loaded.
void Plugin::Call(const char* slot, const std::function<void()>& call) const {
  std::string thrown;
  try {
    return call();
  } catch (...) {
    thrown = common::DescribeCurrentException();
  }
  Fail(std::string(slot) + " threw: " + thrown);
}

void Plugin::Fail(const std::string& reason) const {
  throw std::runtime_error(file + ": " + reason);
}

}  // namespace manager
