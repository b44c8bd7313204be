#pragma once

#include <string>

#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {

/// An item that was just built from its layout into a container, and its controls by their names.
/// What the layouts lack is passed over. UI thread only.
class ItemParts {
 public:
  ItemParts(const wchar_t* layout, DuiLib::CContainerUI& container,
            DuiLib::CPaintManagerUI* manager) {
    auto built = BuildContainer(manager, layout);
    tree = built.get();
    container.Add(built.release());
  }

  template <typename Class>
  Class* Find(const wchar_t* name) const {
    return FindBelow<Class>(tree, name);
  }
  void SetText(const wchar_t* name, const std::wstring& text) const {
    if (auto* const control = Find<DuiLib::CControlUI>(name)) control->SetText(text);
  }
  void SetImage(const wchar_t* name, const std::wstring& expression) const {
    if (auto* const control = Find<DuiLib::CControlUI>(name)) control->SetImage(expression);
  }

 private:
  DuiLib::CContainerUI* tree;
};

}  // namespace orv::sysdiagnose
