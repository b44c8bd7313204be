#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "manager/host/home_page.h"
#include "manager/host/host_channel.h"
#include "manager/host/manager_tabs.h"
#include "manager/host/plugin.h"
#include "manager/host/restart.h"

namespace manager {

/// The manager in a window, whatever shows that: its home page, the pages of a plugin, and what
/// they ask of it. UI thread only.
class Manager {
 public:
  /// Builds the content of the window, which outlives this. `mayRestart` says whether a restart of
  /// the computer is carried out, or only told of. Throws std::runtime_error when a layout cannot
  /// be read.
  Manager(DuiLib::CPaintManagerUI& window, bool mayRestart);
  Manager(const Manager&) = delete;
  Manager& operator=(const Manager&) = delete;
  /// Pages go before what made them.
  ~Manager() { TakePlugin(); }

  /// Loads it and mounts its pages. Throws std::runtime_error naming the file and the reason;
  /// pages that were mounted until then are still there.
  void LoadPlugin(const std::filesystem::path& file);
  bool HasPlugin() const { return plugin != nullptr; }

  /// Shows the first page of the plugin; whether there is one.
  bool EnterPlugin() { return tabs.Enter(kHomeTabs); }

  /// The pages and cards go; the plugin is handed over, which may still be at work.
  std::unique_ptr<Plugin> TakePlugin();

  /// A line below the tabs, until the person closes it.
  void ShowNotice(const std::wstring& text);

  /// Called when the user has started the manager once more; empty at first.
  std::function<void()> raiseAsked;

 private:
  static constexpr std::size_t kHomeTabs = 1;

  void Mount();
  void Restart();

  DuiLib::CPaintManagerUI& window;
  const bool mayRestart;
  ManagerTabs tabs;
  HomePage home;
  HostChannel channel;
  RestartOfComputer restart;
  std::unique_ptr<Plugin> plugin;
};

}  // namespace manager
