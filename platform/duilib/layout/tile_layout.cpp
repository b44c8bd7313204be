#include "platform/duilib/layout/tile_layout.h"

#include <algorithm>

#include "platform/duilib/layout/sharer_of.h"

namespace DuiLib {

const wchar_t* CTileLayoutUI::GetClass() const {
  return L"TileLayout";
}

void CTileLayoutUI::SetColumns(int count) {
  columns = static_cast<std::size_t>(std::max(count, 1));
  NeedLayout();
}

int CTileLayoutUI::ColumnWidth(int room) const {
  return std::max(0, room - Gaps(columns, GetChildPadding())) / static_cast<int>(columns);
}

int CTileLayoutUI::RowHeight(const std::vector<CControlUI*>& items, std::size_t first,
                             int columnWidth) const {
  int highest = 0;
  for (std::size_t index = first; index < std::min(first + columns, items.size()); ++index) {
    CControlUI& item = *items[index];
    highest = std::max(highest,
                       item.GetWishedHeight(WidthIn(item, columnWidth)) + item.GetPadding().Down());
  }
  return highest;
}

int CTileLayoutUI::MeasureHeight(int width) {
  const std::vector<CControlUI*> items = VisibleItems();
  const int columnWidth = ColumnWidth(width - GetInset().Across());
  const std::size_t rows = (items.size() + columns - 1) / columns;
  int height = GetInset().Down() + Gaps(rows, GetChildPadding());
  for (std::size_t first = 0; first < items.size(); first += columns) {
    height += RowHeight(items, first, columnWidth);
  }
  return height;
}

void CTileLayoutUI::Arrange() {
  const Rect inner = InnerRect();
  const std::vector<CControlUI*> items = VisibleItems();
  const int columnWidth = ColumnWidth(inner.Width());
  int top = inner.top;
  int rowHeight = 0;
  for (std::size_t index = 0; index < items.size(); ++index) {
    const std::size_t column = index % columns;
    if (column == 0) {
      if (index != 0) top += rowHeight + GetChildPadding();
      rowHeight = RowHeight(items, index, columnWidth);
    }
    CControlUI& item = *items[index];
    const Insets& sides = item.GetPadding();
    const int width = WidthIn(item, columnWidth);
    const int height = HeightIn(item, width, rowHeight);
    const int left = inner.left + static_cast<int>(column) * (columnWidth + GetChildPadding()) +
                     sides.left + Before(GetChildAlign(), columnWidth - sides.Across(), width);
    const int itemTop =
        top + sides.top + Before(GetChildVAlign(), rowHeight - sides.Down(), height);
    item.SetPos({left, itemTop, left + width, itemTop + height});
  }
}

}  // namespace DuiLib
