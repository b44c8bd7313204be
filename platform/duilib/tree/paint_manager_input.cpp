#include <algorithm>

#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/tree/delivery.h"
#include "platform/duilib/tree/walk.h"

// The part of the paint manager that hears keyboard and pointer.
namespace DuiLib {
namespace {

std::vector<CControlUI*> TabOrder(CControlUI& root) {
  std::vector<CControlUI*> order;
  ForEachInTree(root, [&](CControlUI& control) {
    if (control.IsTabStop() && control.IsFocusable() && control.IsUsable())
      order.push_back(&control);
  });
  return order;
}

}  // namespace

void CPaintManagerUI::SetFocus(CControlUI* control) {
  if (control != nullptr && (control->GetManager() != this || !control->IsFocusable())) return;
  if (focus == control) return;
  if (focus != nullptr) focus->Invalidate();
  focus = control;
  if (focus == nullptr) return;
  focus->Invalidate();
  CControlUI* shown = focus;
  for (auto parent = shown->GetParent(); parent != nullptr; parent = parent->GetParent()) {
    parent->BringIntoSight(*shown);
    shown = parent;
  }
}

void CPaintManagerUI::MoveFocus(bool forward) {
  if (!root) return;
  const std::vector<CControlUI*> order = TabOrder(*root);
  if (order.empty()) return;
  const auto count = order.size();
  const auto at =
      static_cast<std::size_t>(std::find(order.begin(), order.end(), focus) - order.begin());
  if (at == count) return SetFocus(forward ? order.front() : order.back());
  SetFocus(order[(at + (forward ? 1 : count - 1)) % count]);
}

void CPaintManagerUI::ShowFocus(bool value) {
  if (showsFocus == value) return;
  showsFocus = true;  // while the ring counts as damaged
  if (focus != nullptr) focus->Invalidate();
  showsFocus = value;
}

bool CPaintManagerUI::OnKey(Key key) {
  const Delivery delivery(this);
  ShowFocus(true);
  if (key == Key::kTab || key == Key::kBackTab) {
    MoveFocus(key == Key::kTab);
    return true;
  }
  CControlUI* control = focus != nullptr && focus->IsUsable() ? focus : nullptr;
  for (; control != nullptr; control = control->GetParent()) {
    if (control->OnKey(key)) return true;
  }
  if (key != Key::kEscape || !cancelHook) return false;
  CallContained(cancelHook, "the cancel of a window");
  return true;
}

CControlUI* CPaintManagerUI::FindControl(Point point) {
  LayOut();
  return root ? root->FindAt(point) : nullptr;
}

void CPaintManagerUI::Hover(CControlUI* control) {
  if (hovered == control) return;
  if (hovered != nullptr) hovered->Invalidate();
  hovered = control;
  if (hovered != nullptr) hovered->Invalidate();
}

void CPaintManagerUI::OnMouseMove(Point point) {
  if (drags && pressed != nullptr) return pressed->OnDrag(point);
  Hover(FindControl(point));
}

void CPaintManagerUI::OnMouseLeave() {
  Hover(nullptr);
}

void CPaintManagerUI::OnMouseDown(Point point) {
  ShowFocus(false);
  OnMouseMove(point);
  pressed = hovered != nullptr && hovered->IsUsable() ? hovered : nullptr;
  if (pressed == nullptr) return;
  SetFocus(pressed);
  pressed->Invalidate();
  drags = pressed->OnPress(point);
}

void CPaintManagerUI::OnPressLost() {
  if (pressed != nullptr) pressed->Invalidate();
  pressed = nullptr;
  drags = false;
}

// The press counts for what it began on, and only if it ends there.
void CPaintManagerUI::OnMouseUp(Point point) {
  const Delivery delivery(this);
  CControlUI* const began = pressed;
  const bool dragged = drags;
  OnPressLost();
  OnMouseMove(point);
  if (began == nullptr || dragged || began != hovered || !began->IsUsable()) return;
  for (CControlUI* control = began; control != nullptr; control = control->GetParent()) {
    if (control->OnClick(point)) return;
  }
}

CDuiString CPaintManagerUI::GetHint(Point point) {
  CControlUI* control = FindControl(point);
  for (; control != nullptr; control = control->GetParent()) {
    if (CDuiString hint = control->GetHint(); !hint.empty()) return hint;
  }
  return {};
}

bool CPaintManagerUI::IsLinkAt(Point point) {
  CControlUI* const control = FindControl(point);
  return control != nullptr && control->IsUsable() && control->IsLinkAt(point);
}

void CPaintManagerUI::OnWheel(Point point, int steps) {
  const Delivery delivery(this);
  for (CControlUI* control = FindControl(point); control != nullptr;
       control = control->GetParent()) {
    if (control->OnWheel(steps)) return;
  }
}

}  // namespace DuiLib
