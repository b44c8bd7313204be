#pragma once

#include "platform/duilib/controls/button.h"

namespace DuiLib {

/// A check box, or in a group the one of its window that is chosen. Tells "selectchanged".
class DUILIB_API COptionUI : public CButtonUI {
 public:
  COptionUI();
  const wchar_t* GetClass() const override;

  /// Of the options of a window with the same group at most one is selected; an empty group is
  /// none.
  void SetGroup(const CDuiString& value);
  const CDuiString& GetGroup() const { return group; }

  bool IsSelected() const override { return selected; }
  /// Tells "selectchanged" if `notify` and if that changes something; so does the other one of its
  /// group, before.
  void Selected(bool value, bool notify = true);
  bool Activate() override;

 protected:
  void OnManagerChanged() override;

 private:
  void DeselectOthers(bool notify);

  CDuiString group;
  bool selected = false;
};

}  // namespace DuiLib
