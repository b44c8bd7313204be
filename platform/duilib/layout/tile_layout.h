#pragma once

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// Lays its controls in rows of so many columns of equal width, each row as high as the highest in
/// it. The child padding lies between columns and between rows.
class DUILIB_API CTileLayoutUI : public CContainerUI {
 public:
  const wchar_t* GetClass() const override;

  /// One at least.
  void SetColumns(int count);

 protected:
  int MeasureHeight(int width) override;
  void Arrange() override;

 private:
  int ColumnWidth(int room) const;
  /// How high the row is that begins with this control.
  int RowHeight(const std::vector<CControlUI*>& items, std::size_t first, int columnWidth) const;

  std::size_t columns = 1;
};

}  // namespace DuiLib
