#pragma once

#include "platform/duilib/layout/vertical_layout.h"

namespace DuiLib {

/// A row of a list: as wide as the list, as high as its content. Tells "itemselect" when it becomes
/// the selected one and "itemactivate" when it is clicked or Enter is pressed.
class DUILIB_API CListContainerElementUI : public CVerticalLayoutUI {
 public:
  CListContainerElementUI();
  const wchar_t* GetClass() const override;

  /// Its number in its list; behind the last when it is in none.
  std::size_t GetIndex() const;
  bool IsSelected() const override;
  /// Selects it and tells "itemactivate"; whether it can be used.
  bool Activate() override;
};

}  // namespace DuiLib
