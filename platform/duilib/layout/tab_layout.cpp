#include "platform/duilib/layout/tab_layout.h"

namespace DuiLib {

const wchar_t* CTabLayoutUI::GetClass() const {
  return L"TabLayout";
}

void CTabLayoutUI::Add(CControlUI* control) {
  CContainerUI::Add(control);
  ShowSelected();
}

void CTabLayoutUI::AddAt(CControlUI* control, std::size_t index) {
  const bool before = index <= selected && GetCount() != 0;
  const std::size_t count = GetCount();
  CContainerUI::AddAt(control, index);
  if (before && GetCount() > count) ++selected;
  ShowSelected();
}

void CTabLayoutUI::RemoveAll() {
  CContainerUI::RemoveAll();
  selected = 0;
}

void CTabLayoutUI::OnRemoved(std::size_t index) {
  if (index < selected || (selected == GetCount() && selected != 0)) --selected;
  ShowSelected();
}

bool CTabLayoutUI::SelectItem(std::size_t index) {
  if (index >= GetCount()) return false;
  selected = index;
  ShowSelected();
  GetItemAt(index)->Notify(kNotifyTabSelectIn, index);
  return true;
}

void CTabLayoutUI::ShowSelected() {
  for (std::size_t index = 0; index < GetCount(); ++index) {
    GetItemAt(index)->hiddenByTab = index != selected;
  }
  NeedLayout();
  Invalidate();
}

}  // namespace DuiLib
