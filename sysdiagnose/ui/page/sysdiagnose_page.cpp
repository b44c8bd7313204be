#include "sysdiagnose/ui/page/sysdiagnose_page.h"

#include <utility>

#include "platform/duilib/builder/dialog_builder.h"

namespace orv::sysdiagnose {

using DuiLib::CControlUI;
using DuiLib::CPaintManagerUI;

SysdiagnosePage::SysdiagnosePage(std::wstring virtualWindow, std::wstring layout)
    : virtualWindowName(std::move(virtualWindow)), layoutFile(std::move(layout)) {}

SysdiagnosePage::~SysdiagnosePage() {
  DeleteUnplaced();
}

const DuiLib::NotifyMapRow SysdiagnosePage::kMessageRows[] = {
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"", &SysdiagnosePage::HandleClick),
    DuiLib::OnNotify(DuiLib::kNotifyTimer, L"", &SysdiagnosePage::HandleTimer),
    DuiLib::OnNotify(DuiLib::kNotifyTabSelectIn, L"", &SysdiagnosePage::HandleTabSelectIn),
    DuiLib::OnNotify(DuiLib::kNotifySelectChanged, L"", &SysdiagnosePage::HandleSelectChanged),
    DuiLib::OnNotify(DuiLib::kNotifyLink, L"", &SysdiagnosePage::HandleLink),
    {}};
const DuiLib::NotifyMap SysdiagnosePage::kMessageMap{nullptr, kMessageRows};

void SysdiagnosePage::CreatePage(CPaintManagerUI* manager, CNotifyPump* pump) {
  if (root != nullptr) OnGone();
  DeleteUnplaced();
  Unmount();
  paintManager = manager;
  ownerPump = pump;
  root = DuiLib::CDialogBuilder().Create(layoutFile, {}, manager);
  if (root != nullptr) {
    root->SetVirtualWnd(virtualWindowName);
    mounted = std::make_shared<char>();
    // A tree of an earlier mount that goes later concerns nobody.
    root->SetGoneHook([this, since = WhileMounted()] {
      if (since.expired()) return;
      OnGone();
      Unmount();
    });
  }
  if (ownerPump != nullptr) ownerPump->AddVirtualWnd(virtualWindowName, this);
}

void SysdiagnosePage::Unmount() {
  mounted.reset();
  root = nullptr;
  if (ownerPump != nullptr) ownerPump->RemoveVirtualWnd(virtualWindowName);
  ownerPump = nullptr;
  paintManager = nullptr;
}

// A tree that nobody has taken over.
void SysdiagnosePage::DeleteUnplaced() {
  mounted.reset();
  if (root != nullptr && root->GetParent() == nullptr && root->GetManager() == nullptr) delete root;
  root = nullptr;
}

void SysdiagnosePage::SetText(const wchar_t* name, const std::wstring& text) const {
  if (auto* const control = Find<CControlUI>(name)) control->SetText(text);
}

void SysdiagnosePage::SetVisible(const wchar_t* name, bool visible) const {
  if (auto* const control = Find<CControlUI>(name)) control->SetVisible(visible);
}

void SysdiagnosePage::SetEnabled(const wchar_t* name, bool enabled) const {
  if (auto* const control = Find<CControlUI>(name)) control->SetEnabled(enabled);
}

}  // namespace orv::sysdiagnose
