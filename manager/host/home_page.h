#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "manager/host/host_channel.h"
#include "manager/host/module_card.h"
#include "manager/host/module_progress.h"
#include "platform/duilib/tree/container.h"

namespace manager {

/// The manager's own page: a card for each module that describes itself. UI thread only.
class HomePage {
 public:
  /// What it asks of modules, and of the window. Each is set.
  struct Hooks {
    std::function<void(const protocol::ModuleDescriptor&)> startCheck;
    std::function<void(const protocol::ModuleDescriptor&)> stopCheck;
    std::function<void(const protocol::ModuleDescriptor&, const std::vector<std::int32_t>&)>
        startRepair;
    /// Whether there is a page of that title, and to show it.
    std::function<bool(const std::wstring& title)> hasPage;
    std::function<void(const std::wstring& title)> showPage;
  };

  /// Builds its tree, which GetTree hands over to a window that goes before this. Throws
  /// std::runtime_error when a layout cannot be read.
  HomePage(DuiLib::CPaintManagerUI& window, Hooks hooks);
  HomePage(const HomePage&) = delete;
  HomePage& operator=(const HomePage&) = delete;

  DuiLib::CContainerUI* GetTree() { return tree; }

  void OnDescriptor(const protocol::ModuleDescriptor& descriptor);
  void OnSummary(const protocol::DiagnoseSummary& summary, SummaryOf of);

  /// All modules are gone.
  void RemoveModules();

 private:
  struct Module {
    protocol::ModuleDescriptor descriptor;
    std::wstring title;
    ModuleProgress progress;
    std::unique_ptr<ModuleCard> card;
  };

  void AddModule(const protocol::ModuleDescriptor& descriptor);
  void Ask(std::uint32_t module, void (ModuleProgress::*ask)());
  void Stop(std::uint32_t module);
  void OnTick();
  void Tick(Module& module, bool idle);
  void Show(Module& module);
  void Watch();

  const Hooks hooks;
  DuiLib::CContainerUI* const tree;
  std::map<std::uint32_t, Module> modules;
  bool isWatching = false;
};

}  // namespace manager
