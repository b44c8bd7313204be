#include "platform/duilib/layout/horizontal_layout.h"

#include <algorithm>

#include "platform/duilib/layout/sharer_of.h"

namespace DuiLib {

const wchar_t* CHorizontalLayoutUI::GetClass() const {
  return L"HorizontalLayout";
}

int CHorizontalLayoutUI::MeasureWidth() {
  const std::vector<CControlUI*> items = VisibleItems();
  int width = GetInset().Across() + Gaps(items.size(), GetChildPadding());
  for (CControlUI* item : items) width += item->GetWishedWidth() + item->GetPadding().Across();
  return width;
}

// `room` is what stands between the insets.
std::vector<int> CHorizontalLayoutUI::Widths(const std::vector<CControlUI*>& items,
                                             int room) const {
  room -= Gaps(items.size(), GetChildPadding());
  std::vector<Sharer> sharers;
  for (CControlUI* item : items) {
    const bool grows = item->GetWidth().kind == Length::Kind::kGrow;
    sharers.push_back(
        SharerOf(item->GetWidth(), item->GetLeastWidth(), grows ? 0 : item->GetWishedWidth()));
    room -= item->GetPadding().Across();
  }
  return ShareRoom(sharers, room);
}

int CHorizontalLayoutUI::MeasureHeight(int width) {
  const std::vector<CControlUI*> items = VisibleItems();
  const std::vector<int> widths = Widths(items, width - GetInset().Across());
  int highest = 0;
  for (std::size_t index = 0; index < items.size(); ++index) {
    highest = std::max(
        highest, items[index]->GetWishedHeight(widths[index]) + items[index]->GetPadding().Down());
  }
  return highest + GetInset().Down();
}

void CHorizontalLayoutUI::Arrange() {
  const Rect inner = InnerRect();
  const std::vector<CControlUI*> items = VisibleItems();
  const std::vector<int> widths = Widths(items, inner.Width());
  int taken = Sum(widths) + Gaps(items.size(), GetChildPadding());
  for (const CControlUI* item : items) taken += item->GetPadding().Across();

  int left = inner.left + Before(GetChildAlign(), inner.Width(), taken);
  for (std::size_t index = 0; index < items.size(); ++index) {
    const Insets& sides = items[index]->GetPadding();
    const int height = HeightIn(*items[index], widths[index], inner.Height());
    const int top =
        inner.top + sides.top + Before(GetChildVAlign(), inner.Height() - sides.Down(), height);
    left += sides.left;
    items[index]->SetPos({left, top, left + widths[index], top + height});
    left += widths[index] + sides.right + GetChildPadding();
  }
}

}  // namespace DuiLib
