#include "platform/duilib/layout/vertical_layout.h"

#include "platform/duilib/layout/sharer_of.h"

namespace DuiLib {

const wchar_t* CVerticalLayoutUI::GetClass() const {
  return L"VerticalLayout";
}

int CVerticalLayoutUI::MeasureHeight(int width) {
  const std::vector<CControlUI*> items = VisibleItems();
  int height = GetInset().Down() + Gaps(items.size(), GetChildPadding());
  for (CControlUI* item : items) {
    const int itemWidth = WidthIn(*item, width - GetInset().Across());
    height += item->GetWishedHeight(itemWidth) + item->GetPadding().Down();
  }
  return height;
}

void CVerticalLayoutUI::Arrange() {
  const Rect inner = InnerRect();
  const std::vector<CControlUI*> items = VisibleItems();
  int room = inner.Height() - Gaps(items.size(), GetChildPadding());
  std::vector<Sharer> sharers;
  std::vector<int> widths;
  for (CControlUI* item : items) {
    widths.push_back(WidthIn(*item, inner.Width()));
    const Length height = item->GetHeight();
    const bool grows = height.kind == Length::Kind::kGrow;
    sharers.push_back(
        SharerOf(height, item->GetLeastHeight(), grows ? 0 : item->GetWishedHeight(widths.back())));
    room -= item->GetPadding().Down();
  }
  const std::vector<int> heights = ShareRoom(sharers, room);

  int top = inner.top + Before(GetChildVAlign(), room, Sum(heights));
  for (std::size_t index = 0; index < items.size(); ++index) {
    const Insets& sides = items[index]->GetPadding();
    const int left = inner.left + sides.left +
                     Before(GetChildAlign(), inner.Width() - sides.Across(), widths[index]);
    top += sides.top;
    items[index]->SetPos({left, top, left + widths[index], top + heights[index]});
    top += heights[index] + sides.bottom + GetChildPadding();
  }
}

}  // namespace DuiLib
