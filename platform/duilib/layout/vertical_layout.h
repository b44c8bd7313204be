#pragma once

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// Lays its controls below one another.
class DUILIB_API CVerticalLayoutUI : public CContainerUI {
 public:
  const wchar_t* GetClass() const override;

 protected:
  int MeasureHeight(int width) override;
  void Arrange() override;
};

}  // namespace DuiLib
