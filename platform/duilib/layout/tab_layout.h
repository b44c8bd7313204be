#pragma once

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// Shows one of its controls, the first one until another is selected.
class DUILIB_API CTabLayoutUI : public CContainerUI {
 public:
  const wchar_t* GetClass() const override;

  void Add(CControlUI* control) override;
  void AddAt(CControlUI* control, std::size_t index) override;
  void RemoveAll() override;

  /// Shows that control, which then tells "tabselectin", also when it was shown before. Whether
  /// there is one of that number.
  bool SelectItem(std::size_t index);
  /// GetCount() when it is empty.
  std::size_t GetCurSel() const { return selected; }

 protected:
  void OnRemoved(std::size_t index) override;

 private:
  void ShowSelected();

  std::size_t selected = 0;
};

}  // namespace DuiLib
