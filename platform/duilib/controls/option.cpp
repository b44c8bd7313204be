#include "platform/duilib/controls/option.h"

#include "platform/duilib/tree/delivery.h"
#include "platform/duilib/tree/walk.h"

namespace DuiLib {

COptionUI::COptionUI() {
  SetAlign(Place::kStart, Place::kMiddle);
}

const wchar_t* COptionUI::GetClass() const {
  return L"Option";
}

void COptionUI::SetGroup(const CDuiString& value) {
  group = value;
  if (selected) DeselectOthers(false);
}

void COptionUI::OnManagerChanged() {
  CButtonUI::OnManagerChanged();
  if (selected && GetManager() != nullptr) DeselectOthers(false);
}

void COptionUI::Selected(bool value, bool notify) {
  if (selected == value) return;
  const CPaintManagerUI::Delivery delivery(GetManager());
  selected = value;
  Invalidate();
  if (value) DeselectOthers(notify);
  if (notify) Notify(kNotifySelectChanged);
}

// Its handlers may change the tree, so the walk ends before the telling begins.
void COptionUI::DeselectOthers(bool notify) {
  CControlUI* const root = GetManager() == nullptr ? nullptr : GetManager()->GetRoot();
  if (group.empty() || root == nullptr) return;
  CControlUI* const found = FindInTree(*root, [&](CControlUI& control) {
    const auto* const option = dynamic_cast<COptionUI*>(&control);
    return option != nullptr && option != this && option->selected && option->group == group;
  });
  if (found != nullptr) static_cast<COptionUI*>(found)->Selected(false, notify);
}

bool COptionUI::Activate() {
  if (!IsUsable()) return false;
  const bool chosen = selected && !group.empty();
  if (!chosen) Selected(!selected);
  return true;
}

}  // namespace DuiLib
