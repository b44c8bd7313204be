#include "manager/host/manager_tabs.h"

#include <algorithm>
#include <memory>
#include <stdexcept>

#include "common/text.h"
#include "platform/duilib/builder/dialog_builder.h"

namespace manager {
namespace {

using DuiLib::CControlUI;
using DuiLib::CPaintManagerUI;

constexpr const wchar_t* kTheme = L"layout\\theme.xml";
constexpr const wchar_t* kWindow = L"layout\\manager_window.xml";
constexpr const wchar_t* kTab = L"layout\\manager_tab.xml";

[[noreturn]] void Fail(const wchar_t* layout, const std::string& reason) {
  throw std::runtime_error(common::WideToUtf8(layout) + ": " + reason);
}

CPaintManagerUI& WithContent(CPaintManagerUI& window) {
  window.LoadTheme(kTheme);
  CControlUI* const root = DuiLib::CDialogBuilder().Create(kWindow, {}, &window);
  if (root == nullptr) Fail(kWindow, "the layout cannot be read; the log says why");
  window.SetRoot(root);
  return window;
}

}  // namespace

template <typename Class>
Class& ManagerTabs::Find(const wchar_t* name) const {
  auto* const found = dynamic_cast<Class*>(window.FindControl(name));
  if (found == nullptr) Fail(kWindow, common::WideToUtf8(name) + " is missing");
  return *found;
}

ManagerTabs::ManagerTabs(CPaintManagerUI& ofWindow)
    : window(WithContent(ofWindow)),
      bar(Find<DuiLib::CContainerUI>(L"lytManagerTabs")),
      pages(Find<DuiLib::CTabLayoutUI>(L"tblManagerContent")) {
  window.SetNotifyPump(this);
}

ManagerTabs::~ManagerTabs() {
  window.SetNotifyPump(nullptr);
}

void ManagerTabs::Add(const std::wstring& title, CControlUI* page) {
  if (page == nullptr) throw std::runtime_error("a plugin handed a page over that is none");
  std::unique_ptr<CControlUI> tab(DuiLib::CDialogBuilder().Create(kTab, {}, &window));
  auto* const option = dynamic_cast<DuiLib::COptionUI*>(tab.get());
  if (option == nullptr) Fail(kTab, "the layout cannot be read or is no Option");
  option->SetText(title);
  options.push_back(option);
  bar.Add(tab.release());
  pages.Add(page);
  option->Selected(options.size() == 1, false);
}

bool ManagerTabs::Enter(std::size_t number) {
  if (number >= options.size()) return false;
  options[number]->Selected(true, false);
  return pages.SelectItem(number);
}

bool ManagerTabs::Has(const std::wstring& title) const {
  return NumberOf(title) < options.size();
}

bool ManagerTabs::EnterTitled(const std::wstring& title) {
  return Enter(NumberOf(title));
}

std::size_t ManagerTabs::NumberOf(const std::wstring& title) const {
  const auto found = std::find_if(options.begin(), options.end(), [&title](const auto* option) {
    return option->GetText() == title;
  });
  return static_cast<std::size_t>(found - options.begin());
}

void ManagerTabs::KeepFirst(std::size_t count) {
  while (options.size() > count) {
    bar.Remove(options.back());
    options.pop_back();
    pages.Remove(pages.GetItemAt(options.size()));
  }
  if (count != 0 && !options.empty() && pages.GetCurSel() < options.size())
    options[pages.GetCurSel()]->Selected(true, false);
}

const DuiLib::NotifyMap* ManagerTabs::GetMessageMap() const {
  static const DuiLib::NotifyMapRow rows[] = {
      DuiLib::OnNotify(DuiLib::kNotifySelectChanged, L"optManagerTab", &ManagerTabs::OnOption), {}};
  static const DuiLib::NotifyMap map{nullptr, rows};
  return &map;
}

void ManagerTabs::OnOption(DuiLib::TNotifyUI& notification) {
  if (!notification.sender->IsSelected()) return;
  const auto chosen = std::find(options.begin(), options.end(), notification.sender);
  Enter(static_cast<std::size_t>(chosen - options.begin()));
}

}  // namespace manager
