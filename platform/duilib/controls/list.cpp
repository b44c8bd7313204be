#include "platform/duilib/controls/list.h"

#include <algorithm>
#include <cmath>

#include "platform/duilib/layout/sharer_of.h"
#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {
namespace {

constexpr std::size_t kScrollTimer = 0;
constexpr int kScrollPeriod = 16;  // milliseconds
constexpr int kWheelLines = 3;
constexpr int kBarWidth = 6;
constexpr int kBarMargin = 2;
constexpr int kBarReach = 12;  // from the right side, where the pointer takes hold of the bar
constexpr int kLeastThumb = 24;

}  // namespace

const wchar_t* CListUI::GetClass() const {
  return L"List";
}

void CListUI::AddAt(CControlUI* control, std::size_t index) {
  const std::size_t count = GetCount();
  CContainerUI::AddAt(control, index);
  if (GetCount() > count && selected != kNone && index <= selected) ++selected;
}

void CListUI::RemoveAll() {
  CContainerUI::RemoveAll();
  selected = kNone;
  scrollPos = scrollTarget = 0;
}

void CListUI::OnRemoved(std::size_t index) {
  if (selected == kNone || index > selected) return;
  selected = index == selected ? kNone : selected - 1;
}

bool CListUI::SelectItem(std::size_t index) {
  CControlUI* const row = GetItemAt(index);
  if (row == nullptr) return false;
  EnsureVisible(index);
  if (index == selected) return true;
  if (CControlUI* const before = GetSelectedItem()) before->Invalidate();
  selected = index;
  row->Invalidate();
  row->Notify(kNotifyItemSelect, index);
  return true;
}

int CListUI::ContentHeight(int width) {
  const std::vector<CControlUI*> rows = VisibleItems();
  int height = Gaps(rows.size(), GetChildPadding());
  for (CControlUI* row : rows) {
    height += row->GetWishedHeight(WidthIn(*row, width)) + row->GetPadding().Down();
  }
  return height;
}

int CListUI::MeasureHeight(int width) {
  return ContentHeight(width - GetInset().Across()) + GetInset().Down();
}

void CListUI::Arrange() {
  const Rect view = InnerRect();
  contentHeight = ContentHeight(view.Width());
  scrollPos = std::clamp(scrollPos, 0, std::max(0, contentHeight - view.Height()));
  const bool all = GetManager() != nullptr && GetManager()->LaysOutAll();

  int top = view.top - scrollPos;
  for (CControlUI* row : VisibleItems()) {
    const Insets& sides = row->GetPadding();
    const int width = WidthIn(*row, view.Width());
    const int height = row->GetWishedHeight(width);
    const int left =
        view.left + sides.left + Before(GetChildAlign(), view.Width() - sides.Across(), width);
    top += sides.top;
    PlaceRow(*row, {left, top, left + width, top + height}, all);
    top += height + sides.bottom + GetChildPadding();
  }
}

void CListUI::PlaceRow(CControlUI& row, const Rect& place, bool inAnyCase) const {
  const Rect view = InnerRect();
  if (inAnyCase || (place.bottom > view.top && place.top < view.bottom)) {
    row.SetPos(place);
  } else {
    row.SetPosOutOfSight(place);
  }
}

// Rows that are laid out only move: nothing is measured again, however many there are.
void CListUI::MoveTo(int position) {
  const int way = position - scrollPos;
  scrollPos = position;
  Invalidate();
  if (needsLayout || GetManager() == nullptr) return NeedLayout();
  for (std::size_t index = 0; index < GetCount(); ++index) {
    CControlUI& row = *GetItemAt(index);
    if (row.IsVisible()) PlaceRow(row, row.GetPos().MovedBy(0, -way), false);
  }
}

void CListUI::LayOutNow() {
  if (GetManager() != nullptr) GetManager()->LayOut();
}

int CListUI::GetScrollPos() {
  LayOutNow();
  return scrollPos;
}

int CListUI::GetScrollRange() {
  LayOutNow();
  return std::max(0, contentHeight - InnerRect().Height());
}

std::optional<CListUI::Track> CListUI::ScrollTrack() {
  const int range = GetScrollRange();
  if (range == 0) return std::nullopt;
  const int ends = kBarMargin + GetStyle().radius / 2;
  const Rect track = GetPos().Without({kBarMargin, ends, kBarMargin, ends});
  const auto share = static_cast<double>(track.Height()) / contentHeight;
  const int height = static_cast<int>((contentHeight - range) * share);
  return Track{track, std::min(std::max(height, kLeastThumb), track.Height())};
}

Rect CListUI::GetScrollThumb() {
  const auto track = ScrollTrack();
  if (!track) return {};
  const Rect& room = track->room;
  const auto way = static_cast<double>(room.Height() - track->thumbHeight) / GetScrollRange();
  const int top = room.top + static_cast<int>(scrollPos * way);
  return {std::max(room.left, room.right - kBarWidth), top, room.right, top + track->thumbHeight};
}

// The bar lies over the rows, and can be held a little beside it too.
CControlUI* CListUI::FindAt(Point point) {
  CControlUI* const found = CContainerUI::FindAt(point);
  const bool onBar = found != nullptr && point.x >= GetPos().right - kBarReach;
  return onBar && GetScrollRange() != 0 ? this : found;
}

bool CListUI::OnPress(Point point) {
  const Rect thumb = GetScrollThumb();
  if (thumb.IsEmpty() || point.x < GetPos().right - kBarReach) return false;
  const bool onThumb = point.y >= thumb.top && point.y < thumb.bottom;
  grip = onThumb ? point.y - thumb.top : thumb.Height() / 2;
  OnDrag(point);
  return true;
}

void CListUI::OnDrag(Point point) {
  const auto track = ScrollTrack();
  if (!track) return;
  const int way = track->room.Height() - track->thumbHeight;
  if (way <= 0) return;
  const auto share = static_cast<double>(point.y - grip - track->room.top) / way;
  SetScrollPos(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * GetScrollRange())));
}

void CListUI::SetScrollPos(int position) {
  if (GetManager() != nullptr) GetManager()->KillOwnTimer(this, kScrollTimer);
  position = std::clamp(position, 0, GetScrollRange());
  scrollTarget = position;
  if (position != scrollPos) MoveTo(position);
}

void CListUI::ScrollSmoothlyTo(int position) {
  scrollTarget = std::clamp(position, 0, GetScrollRange());
  if (GetManager() == nullptr || scrollTarget == scrollPos) return;
  GetManager()->SetOwnTimer(this, kScrollTimer, kScrollPeriod, false);
}

// A third of the way is left behind with each step, and a point at least.
void CListUI::OnOwnTimer(std::size_t) {
  const int target = std::clamp(scrollTarget, 0, GetScrollRange());
  const int way = target - scrollPos;
  MoveTo(scrollPos + (way / 3 != 0 ? way / 3 : std::clamp(way, -1, 1)));
  if (scrollPos == target) GetManager()->KillOwnTimer(this, kScrollTimer);
}

void CListUI::EnsureVisible(std::size_t index) {
  const CControlUI* const row = GetItemAt(index);
  if (row == nullptr || GetManager() == nullptr) return;
  LayOutNow();
  const Rect view = InnerRect();
  const Rect place = row->GetPos();
  if (place.top < view.top || place.Height() > view.Height()) {
    SetScrollPos(scrollPos + place.top - view.top);
  } else if (place.bottom > view.bottom) {
    SetScrollPos(scrollPos + place.bottom - view.bottom);
  }
}

void CListUI::BringIntoSight(const CControlUI& control) {
  EnsureVisible(GetItemIndex(&control));
}

bool CListUI::OnWheel(int steps) {
  if (GetScrollRange() == 0) return false;
  const bool scrolls = GetManager()->HasOwnTimer(this, kScrollTimer);
  ScrollSmoothlyTo((scrolls ? scrollTarget : scrollPos) - steps * kWheelLines * lineStep);
  return true;
}

std::size_t CListUI::NextUsable(std::size_t from, bool forward) const {
  for (std::size_t index = from; index < GetCount(); index += forward ? 1 : kNone) {
    if (GetItemAt(index)->IsUsable()) return index;
  }
  return kNone;
}

std::size_t CListUI::Target(Key key) const {
  const bool any = selected != kNone;
  switch (key) {
    case Key::kHome:
      return NextUsable(0, true);
    case Key::kEnd:
      return NextUsable(GetCount() - 1, false);
    case Key::kDown:
      return NextUsable(any ? selected + 1 : 0, true);
    case Key::kUp:
      return any ? NextUsable(selected - 1, false) : NextUsable(0, true);
    default:
      return kNone;
  }
}

bool CListUI::OnKey(Key key) {
  if (key == Key::kPageUp || key == Key::kPageDown) {
    const int page = InnerRect().Height();
    SetScrollPos(GetScrollPos() + (key == Key::kPageDown ? page : -page));
    return true;
  }
  if (key == Key::kEnter && GetSelectedItem() != nullptr) return GetSelectedItem()->Activate();
  const std::size_t target = Target(key);
  return target != kNone && SelectItem(target);
}

}  // namespace DuiLib
