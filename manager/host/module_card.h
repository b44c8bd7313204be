#pragma once

#include <functional>
#include <memory>
#include <string>

#include "common/protocol/module_descriptor.h"
#include "manager/host/module_progress.h"
#include "platform/duilib/tree/container.h"

namespace manager {

/// What a person can ask of a card; each is set.
struct ModuleCardHooks {
  std::function<void()> check;
  std::function<void()> repair;
  std::function<void()> stop;
  std::function<void()> details;
};

/// A module on the home page: who it is, how it stands, what can be asked of it. UI thread only.
class ModuleCard {
 public:
  /// Builds it into a container that outlives this. Throws std::runtime_error when a layout cannot
  /// be read or lacks a control.
  ModuleCard(DuiLib::CContainerUI& into, const protocol::ModuleDescriptor& descriptor,
             const ModuleCardHooks& hooks);

  void Show(const ModuleProgress& progress, bool hasPage);

 private:
  template <typename Class = DuiLib::CControlUI>
  Class& Find(const wchar_t* name) const;
  void OnClick(const wchar_t* button, std::function<void()> hook);
  void SetText(const wchar_t* name, const std::wstring& text);
  void ShowButtons(const ModuleProgress& progress, bool hasPage);
  void ShowCategories(const ModuleProgress& progress);
  void ShowFindings(const ModuleProgress& progress);

  DuiLib::CContainerUI& tree;
};

}  // namespace manager
