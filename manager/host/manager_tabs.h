#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/duilib/controls/option.h"
#include "platform/duilib/layout/tab_layout.h"
#include "platform/duilib/notify/notify_pump.h"
#include "platform/duilib/tree/paint_manager.h"

namespace manager {

/// The manager's own window: a bar of options, a tab for each page of a plugin. UI thread only.
class ManagerTabs final : public DuiLib::CNotifyPump {
 public:
  /// Builds the content of that window, which outlives this. Throws std::runtime_error when a
  /// layout is missing or holds no place for tabs.
  explicit ManagerTabs(DuiLib::CPaintManagerUI& window);
  ~ManagerTabs();

  /// Takes the page over. Throws std::runtime_error for a null page.
  void Add(const std::wstring& title, DuiLib::CControlUI* page);

  /// Shows the page of that number, which is told "tabselectin". Whether there is one.
  bool Enter(std::size_t number);

  /// The same for the first page of that title.
  bool Has(const std::wstring& title) const;
  bool EnterTitled(const std::wstring& title);

  /// The other pages go.
  void KeepFirst(std::size_t count);

 protected:
  const DuiLib::NotifyMap* GetMessageMap() const override;

 private:
  void OnOption(DuiLib::TNotifyUI& notification);
  std::size_t NumberOf(const std::wstring& title) const;

  template <typename Class>
  Class& Find(const wchar_t* name) const;

  DuiLib::CPaintManagerUI& window;
  DuiLib::CContainerUI& bar;
  DuiLib::CTabLayoutUI& pages;
  std::vector<DuiLib::COptionUI*> options;
};

}  // namespace manager
