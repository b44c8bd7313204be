#pragma once

#include <memory>
#include <string>

#include "manager/host/manager.h"
#include "manager/window/settings.h"
#include "platform/duilib/tree/paint_manager.h"

namespace manager {

/// The manager in a window of the screen, where it stood and as it looked when it was last closed.
/// UI thread only.
class WindowManager {
 public:
  /// Shows the window. `settings` are kept up to date, and outlive this; `language` is the one in
  /// force. Throws std::runtime_error
  /// when a layout cannot be read.
  WindowManager(DuiLib::Desktop& desktop, Settings& settings, const std::string& language,
                bool mayRestart);
  WindowManager(const WindowManager&) = delete;
  WindowManager& operator=(const WindowManager&) = delete;
  ~WindowManager();

  Manager& GetManager() { return manager; }

  /// Loads the plugin, or says in the window that it cannot be.
  void LoadPlugin(const std::filesystem::path& file);

 private:
  void ShowTheme();
  void OfferChoices(const std::string& language);

  DuiLib::Desktop& desktop;
  Settings& settings;
  DuiLib::CPaintManagerUI content;
  Manager manager;
  std::unique_ptr<DuiLib::TopWindow> top;
};

}  // namespace manager
