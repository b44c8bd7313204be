#include "platform/duilib/tree/container.h"

#include <algorithm>
#include <utility>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

CContainerUI::CContainerUI() {
  SetWidth(Length::Grow());
  SetHeight(Length::Grow());
}

CContainerUI::~CContainerUI() = default;

const wchar_t* CContainerUI::GetClass() const {
  return L"Container";
}

void CContainerUI::Insert(std::size_t index, CControlUI* control) {
  if (control == nullptr || control->parent != nullptr) return;
  index = std::min(index, children.size());
  children.emplace(children.begin() + static_cast<std::ptrdiff_t>(index), control);
  control->parent = this;
  control->SetManager(GetManager());
  control->NeedLayout();
}

bool CContainerUI::Remove(CControlUI* control) {
  const std::size_t index = GetItemIndex(control);
  if (index == children.size()) return false;
  Invalidate();
  std::unique_ptr<CControlUI> removed = std::move(children[index]);
  children.erase(children.begin() + static_cast<std::ptrdiff_t>(index));
  OnRemoved(index);
  NeedLayout();
  LetGo(std::move(removed));
  return true;
}

void CContainerUI::RemoveAll() {
  if (children.empty()) return;
  Invalidate();
  auto removed = std::exchange(children, {});
  NeedLayout();
  for (auto& control : removed) LetGo(std::move(control));
}

// A handler may be running on its behalf: then it goes when the handler has returned.
void CContainerUI::LetGo(std::unique_ptr<CControlUI> control) {
  control->parent = nullptr;
  control->hiddenByTab = false;
  control->SetManager(nullptr);
  if (GetManager() != nullptr) GetManager()->Bury(std::move(control));
}

CControlUI* CContainerUI::GetItemAt(std::size_t index) const {
  return index < children.size() ? children[index].get() : nullptr;
}

std::size_t CContainerUI::GetItemIndex(const CControlUI* control) const {
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&](const auto& child) { return child.get() == control; });
  return static_cast<std::size_t>(found - children.begin());
}

void CContainerUI::SetInset(const Insets& value) {
  inset = value;
  NeedLayout();
}

void CContainerUI::SetChildPadding(int points) {
  childPadding = Length::Number(points).value;
  NeedLayout();
}

void CContainerUI::SetChildAlign(Place alignAcross, Place alignDown) {
  across = alignAcross;
  down = alignDown;
  NeedLayout();
}

std::vector<CControlUI*> CContainerUI::VisibleItems() const {
  std::vector<CControlUI*> visibleItems;
  for (const auto& child : children) {
    if (child->visible && !child->hiddenByTab) visibleItems.push_back(child.get());
  }
  return visibleItems;
}

int CContainerUI::WidthIn(CControlUI& control, int room) {
  room = std::max(0, room - control.GetPadding().Across());
  if (control.GetWidth().kind == Length::Kind::kGrow) return std::max(room, control.least.width);
  if (control.GetWidth().kind == Length::Kind::kNumber) return control.GetWishedWidth();
  return std::max(std::min(control.GetWishedWidth(), room), control.least.width);
}

int CContainerUI::HeightIn(CControlUI& control, int width, int room) {
  room = std::max(0, room - control.GetPadding().Down());
  if (control.GetHeight().kind == Length::Kind::kGrow) return std::max(room, control.least.height);
  if (control.GetHeight().kind == Length::Kind::kNumber) return control.GetWishedHeight(width);
  return std::max(std::min(control.GetWishedHeight(width), room), control.least.height);
}

int CContainerUI::MeasureWidth() {
  int widest = 0;
  for (CControlUI* child : VisibleItems()) {
    widest = std::max(widest, child->GetWishedWidth() + child->GetPadding().Across());
  }
  return widest + inset.Across();
}

int CContainerUI::MeasureHeight(int width) {
  int highest = 0;
  for (CControlUI* child : VisibleItems()) {
    const int childWidth = WidthIn(*child, width - inset.Across());
    highest = std::max(highest, child->GetWishedHeight(childWidth) + child->GetPadding().Down());
  }
  return highest + inset.Down();
}

void CContainerUI::Arrange() {
  const Rect room = InnerRect();
  for (CControlUI* child : VisibleItems()) {
    const Insets& sides = child->GetPadding();
    const int width = WidthIn(*child, room.Width());
    const int height = HeightIn(*child, width, room.Height());
    const int left = room.left + sides.left + Before(across, room.Width() - sides.Across(), width);
    const int top = room.top + sides.top + Before(down, room.Height() - sides.Down(), height);
    child->SetPos({left, top, left + width, top + height});
  }
}

void CContainerUI::MoveBy(int x, int y) {
  CControlUI::MoveBy(x, y);
  for (const auto& child : children) child->MoveBy(x, y);
}

void CContainerUI::SetManager(CPaintManagerUI* value) {
  CControlUI::SetManager(value);
  for (const auto& child : children) child->SetManager(value);
}

// What was added last lies on top.
CControlUI* CContainerUI::FindAt(Point point) {
  if (CControlUI::FindAt(point) == nullptr) return nullptr;
  for (auto child = children.rbegin(); child != children.rend(); ++child) {
    if (CControlUI* const found = (*child)->FindAt(point)) return found;
  }
  return this;
}

}  // namespace DuiLib
