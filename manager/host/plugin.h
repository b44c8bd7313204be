#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "platform/os/module.h"
#include "platform/plugins_manager/plugin_interfaces.h"

namespace manager {

/// A plugin in this process. What it throws comes out as std::runtime_error "<file>: <reason>".
/// UI thread only.
class Plugin {
 public:
  /// The one that was named, or if none was that of the installation.
  static std::filesystem::path FileOf(const std::filesystem::path& named);

  /// Loads it through the plugin manager and creates its object by interface. Throws
  /// std::runtime_error naming the file and what is wrong with it.
  explicit Plugin(const std::filesystem::path& library);
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;
  ~Plugin();

  /// Asks for its pages. Throws std::runtime_error when it refuses or throws.
  void CreateUI(PageCreationContext& context);

  /// Gives the object and the library back; the plugin leaves the process when its work has ended.
  void LetGo();

  /// Whether the library is in the process, which work of it that has not ended keeps it in.
  static bool IsInProcess(const std::filesystem::path& library);

 private:
  void RequireExports() const;
  void Create();
  void Unload();
  void LetGoLogged();
  void Call(const char* slot, const std::function<void()>& call) const;
  [[noreturn]] void Fail(const std::string& reason) const;

  const std::string file;
  const os::ModuleHandle pluginsManager;
  bool loaded = false;
  IQVXUIPlugin* object = nullptr;
};

}  // namespace manager
