#pragma once

#include <string>

#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/tree/container.h"
#include "platform/duilib/tree/paint_manager.h"

namespace orv::sysdiagnose {

/// An item that was just built from its layout into a container, and its controls by their names.
/// What the layout lacks is passed over. UI thread only.
class ItemParts {
 public:
  ItemParts(const wchar_t* layout, DuiLib::CContainerUI& container,
            DuiLib::CPaintManagerUI* manager)
      : root(DuiLib::CDialogBuilder().Create(layout, {}, manager, &container)) {}

  template <typename Class>
  Class* Find(const wchar_t* name) const {
    return dynamic_cast<Class*>(DuiLib::CPaintManagerUI::FindControl(root, name));
  }
  void SetText(const wchar_t* name, const std::wstring& text) const {
    if (auto* const control = Find<DuiLib::CControlUI>(name)) control->SetText(text);
  }
  void SetImage(const wchar_t* name, const std::wstring& expression) const {
    if (auto* const control = Find<DuiLib::CControlUI>(name)) control->SetImage(expression);
  }

 private:
  DuiLib::CControlUI* const root;
};

}  // namespace orv::sysdiagnose
