#include "platform/duilib/window/told_control.h"

#include <optional>

#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/list_container_element.h"
#include "platform/duilib/controls/option.h"
#include "platform/duilib/tree/walk.h"

namespace DuiLib {
namespace {

std::optional<ToldRole> RoleOf(const CControlUI& control) {
  if (const auto* const option = dynamic_cast<const COptionUI*>(&control))
    return option->GetGroup().empty() ? ToldRole::kCheckBox : ToldRole::kChoice;
  if (dynamic_cast<const CButtonUI*>(&control) != nullptr) return ToldRole::kButton;
  if (dynamic_cast<const CListUI*>(&control) != nullptr) return ToldRole::kList;
  if (dynamic_cast<const CListContainerElementUI*>(&control) != nullptr) return ToldRole::kRow;
  if (dynamic_cast<const CLabelUI*>(&control) == nullptr || control.GetText().empty())
    return std::nullopt;
  return control.IsFocusable() ? ToldRole::kLink : ToldRole::kText;
}

CDuiString FirstTextIn(CControlUI& below) {
  const CControlUI* const found = FindInTree(below, [](const CControlUI& control) {
    return control.IsShown() && !control.GetPlainText().empty();
  });
  return found == nullptr ? CDuiString() : found->GetPlainText();
}

CDuiString NameOf(CControlUI& control) {
  if (!control.GetPlainText().empty()) return control.GetPlainText();
  if (!control.GetToolTip().empty()) return control.GetToolTip();
  if (CDuiString text = FirstTextIn(control); !text.empty()) return text;
  const CContainerUI* const parent = control.GetParent();
  if (parent == nullptr) return {};
  CControlUI* const next = parent->GetItemAt(parent->GetItemIndex(&control) + 1);
  return next == nullptr ? CDuiString() : FirstTextIn(*next);
}

}  // namespace

std::vector<ToldControl> ToldControls(const CPaintManagerUI& window) {
  std::vector<ToldControl> told;
  if (window.GetRoot() == nullptr) return told;
  ForEachInTree(*window.GetRoot(), [&](CControlUI& control) {
    const auto role = RoleOf(control);
    if (role && control.IsShown()) told.push_back({&control, *role, NameOf(control)});
  });
  return told;
}

}  // namespace DuiLib
