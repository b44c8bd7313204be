#pragma once

#include "platform/duilib/controls/label.h"

namespace DuiLib {

/// Tells "click" when it is used: by the pointer, Enter or Space.
class DUILIB_API CButtonUI : public CLabelUI {
 public:
  CButtonUI();
  const wchar_t* GetClass() const override;
  bool IsFocusable() const override { return true; }
  bool Activate() override;
  bool OnClick(Point) override { return Activate(); }
};

}  // namespace DuiLib
