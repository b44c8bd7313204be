#pragma once

#include <vector>

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// Lays its controls beside one another.
class DUILIB_API CHorizontalLayoutUI : public CContainerUI {
 public:
  const wchar_t* GetClass() const override;

 protected:
  int MeasureWidth() override;
  int MeasureHeight(int width) override;
  void Arrange() override;

 private:
  std::vector<int> Widths(const std::vector<CControlUI*>& items, int room) const;
};

}  // namespace DuiLib
