#pragma once

#include <memory>

#include "platform/duilib/tree/container.h"
#include "platform/duilib/tree/paint_manager.h"

namespace orv::sysdiagnose {

/// The tree of a layout below the skin folder; null when it cannot be loaded or its root holds no
/// other controls. UI thread only.
std::unique_ptr<DuiLib::CContainerUI> BuildContainer(DuiLib::CPaintManagerUI* manager,
                                                     const wchar_t* layout);

/// The control of that name below another one; null when there is none, or it is of another class.
template <typename Class>
Class* FindBelow(DuiLib::CControlUI* tree, const wchar_t* name) {
  return dynamic_cast<Class*>(DuiLib::CPaintManagerUI::FindControl(tree, name));
}

}  // namespace orv::sysdiagnose
