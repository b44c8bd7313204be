#include "platform/duilib/controls/list_container_element.h"

#include "platform/duilib/controls/list.h"
#include "platform/duilib/tree/delivery.h"

namespace DuiLib {

CListContainerElementUI::CListContainerElementUI() {
  SetHeight(Length::Shrink());
}

const wchar_t* CListContainerElementUI::GetClass() const {
  return L"ListContainerElement";
}

std::size_t CListContainerElementUI::GetIndex() const {
  return GetParent() == nullptr ? 0 : GetParent()->GetItemIndex(this);
}

bool CListContainerElementUI::IsSelected() const {
  const auto* const list = dynamic_cast<const CListUI*>(GetParent());
  return list != nullptr && list->GetSelectedItem() == this;
}

bool CListContainerElementUI::Activate() {
  auto* const list = dynamic_cast<CListUI*>(GetParent());
  if (list == nullptr || !IsUsable()) return false;
  const CPaintManagerUI::Delivery delivery(GetManager());
  list->SelectItem(GetIndex());
  // What heard of the selection may have taken the row away.
  if (GetParent() == list) Notify(kNotifyItemActivate, GetIndex());
  return true;
}

}  // namespace DuiLib
