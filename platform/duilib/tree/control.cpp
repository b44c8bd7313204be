#include "platform/duilib/tree/control.h"

#include <algorithm>
#include <utility>

#include "common/log.h"
#include "common/text.h"
#include "platform/duilib/notify/contained_call.h"
#include "platform/duilib/tree/container.h"
#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

CControlUI::CControlUI() = default;

CControlUI::~CControlUI() {
  if (manager != nullptr) manager->Forget(*this);
  if (goneHook) CallContained(goneHook, "the hook of a control that goes");
}

const wchar_t* CControlUI::GetClass() const {
  return L"Control";
}

void CControlUI::SetText(const CDuiString& value) {
  CDuiString fresh = UICulture::GetInstance()->ParseBind(value);
  if (fresh == text) return;
  text = std::move(fresh);
  OnTextChanged();
  NeedLayout();
  Invalidate();
}

void CControlUI::SetToolTip(const CDuiString& value) {
  toolTip = UICulture::GetInstance()->ParseBind(value);
}

CDuiString CControlUI::GetVirtualWnd() const {
  for (const CControlUI* control = this; control != nullptr; control = control->parent) {
    if (!control->virtualWindow.empty()) return control->virtualWindow;
  }
  return {};
}

void CControlUI::SetVisible(bool value) {
  if (visible == value) return;
  Invalidate();
  visible = value;
  Invalidate();
  NeedLayout();
}

bool CControlUI::IsShown() const {
  for (const CControlUI* control = this; control != nullptr; control = control->parent) {
    if (!control->visible || control->hiddenByTab) return false;
  }
  return true;
}

void CControlUI::SetEnabled(bool value) {
  if (enabled == value) return;
  enabled = value;
  Invalidate();
}

bool CControlUI::IsUsable() const {
  for (const CControlUI* control = this; control != nullptr; control = control->parent) {
    if (!control->enabled) return false;
  }
  return IsShown();
}

void CControlUI::SetWidth(Length value) {
  if (lengthAcross == value) return;
  lengthAcross = value;
  NeedLayout();
}

void CControlUI::SetHeight(Length value) {
  if (lengthDown == value) return;
  lengthDown = value;
  NeedLayout();
}

void CControlUI::SetLeastWidth(int points) {
  least.width = Length::Number(points).value;
  NeedLayout();
}

void CControlUI::SetLeastHeight(int points) {
  least.height = Length::Number(points).value;
  NeedLayout();
}

void CControlUI::SetPadding(const Insets& value) {
  if (padding == value) return;
  padding = value;
  NeedLayout();
}

int CControlUI::GetWishedWidth() {
  if (lengthAcross.kind == Length::Kind::kNumber) return std::max(lengthAcross.value, least.width);
  if (!wishedWidth) wishedWidth = std::max(MeasureWidth(), least.width);
  return *wishedWidth;
}

int CControlUI::GetWishedHeight(int forWidth) {
  if (lengthDown.kind == Length::Kind::kNumber) return std::max(lengthDown.value, least.height);
  if (!wishedHeight || wishedHeight->width != forWidth) {
    wishedHeight = {forWidth, std::max(MeasureHeight(forWidth), least.height)};
  }
  return wishedHeight->height;
}

void CControlUI::SetPos(const Rect& rect) {
  const bool moves = rect != pos;
  if (!moves && !needsLayout) return;
  const bool isResized = rect.Width() != pos.Width() || rect.Height() != pos.Height();
  if (moves) Invalidate();
  if (needsLayout || isResized) {
    pos = rect;
    needsLayout = false;
    if (manager != nullptr) manager->CountLayout();
    Arrange();
  } else {
    MoveBy(rect.left - pos.left, rect.top - pos.top);
  }
  if (moves) Invalidate();
}

void CControlUI::SetPosOutOfSight(const Rect& rect) {
  if (rect == pos) return;
  pos = rect;
  needsLayout = true;
}

void CControlUI::MoveBy(int x, int y) {
  pos = pos.MovedBy(x, y);
}

void CControlUI::NeedLayout() {
  for (CControlUI* control = this; control != nullptr; control = control->parent) {
    control->needsLayout = true;
    control->wishedWidth.reset();
    control->wishedHeight.reset();
  }
  if (manager != nullptr) manager->NeedLayout();
}

void CControlUI::Invalidate() {
  if (manager != nullptr && IsShown()) manager->Invalidate(*this);
}

void CControlUI::SetLook(ControlState state, bool selected, const Look& look) {
  auto& looks = selected ? style.selectedLooks : style.looks;
  Look& old = looks[static_cast<std::size_t>(state)];
  if (old == look) return;
  old = look;
  Invalidate();
}

void CControlUI::SetBackground(Colour colour) {
  Look look = style.looks[0];
  look.background = std::move(colour);
  look.gradientEnd.reset();
  SetLook(ControlState::kRest, false, look);
}

void CControlUI::SetGradient(Colour from, Colour to) {
  Look look = style.looks[0];
  look.background = std::move(from);
  look.gradientEnd = std::move(to);
  SetLook(ControlState::kRest, false, look);
}

void CControlUI::SetImage(const CDuiString& expression) {
  const auto image = Image::Parse(expression);
  if (!image) {
    COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"),
                    "no picture for " + common::WideToUtf8(name) + ": '" +
                        common::WideToUtf8(expression) + "' is not file='<path>'");
    return;
  }
  if (manager != nullptr) manager->CheckImage(*image, "");
  Look look = style.looks[0];
  look.image = *image;
  SetLook(ControlState::kRest, false, look);
}

void CControlUI::SetBorder(int points, Colour colour) {
  style.borderWidth = Length::Number(points).value;
  Look look = style.looks[0];
  look.border = std::move(colour);
  SetLook(ControlState::kRest, false, look);
  Invalidate();
}

void CControlUI::SetRadius(int points) {
  style.radius = Length::Number(points).value;
  Invalidate();
}

void CControlUI::SetShadow(int points) {
  style.shadow = std::clamp(points, 0, kMaxShadow);
  if (manager != nullptr) manager->NeedReach(style.shadow);
  Invalidate();
}

Look CControlUI::GetLook() const {
  const ControlState state = !IsUsable()   ? ControlState::kDisabled
                             : IsPressed() ? ControlState::kPressed
                             : IsHovered() ? ControlState::kHovered
                             : IsFocused() ? ControlState::kFocused
                                           : ControlState::kRest;
  return style.Of(state, IsSelected());
}

void CControlUI::Notify(const CDuiString& type, std::size_t value) {
  if (manager != nullptr) return manager->SendNotify(*this, type, value);
  TNotifyUI notification{type, GetVirtualWnd(), this, value};
  TellHook(notifyHook, notification);
}

bool CControlUI::IsFocused() const {
  return manager != nullptr && manager->GetFocus() == this;
}

bool CControlUI::IsHovered() const {
  return manager != nullptr && manager->GetHovered() == this;
}

bool CControlUI::IsPressed() const {
  return IsHovered() && manager->GetPressed() == this;
}

CControlUI* CControlUI::FindAt(Point point) {
  return visible && !hiddenByTab && pos.Contains(point) ? this : nullptr;
}

void CControlUI::SetManager(CPaintManagerUI* value) {
  if (manager == value) return;
  if (manager != nullptr) manager->Forget(*this);
  manager = value;
  if (manager != nullptr) manager->NeedReach(style.shadow);
  OnManagerChanged();
}

}  // namespace DuiLib
