#pragma once

#include <stdexcept>
#include <string>

#include "platform/duilib/tree/container.h"
#include "platform/duilib/tree/paint_manager.h"

namespace manager {

/// Builds the tree of a layout of the manager. The caller owns it, or the parent if one is given.
/// Throws std::runtime_error naming the layout when it cannot be read or is no container.
DuiLib::CContainerUI* BuildLayout(const wchar_t* layout, DuiLib::CPaintManagerUI* window,
                                  DuiLib::CContainerUI* parent = nullptr);

[[noreturn]] void FailForControl(const wchar_t* name);

/// The control of that name below (and with) another one. Throws std::runtime_error naming one that
/// is not there or is of another class.
template <typename Class = DuiLib::CControlUI>
Class& FindIn(DuiLib::CControlUI& below, const wchar_t* name) {
  auto* const found = dynamic_cast<Class*>(DuiLib::CPaintManagerUI::FindControl(&below, name));
  if (found == nullptr) FailForControl(name);
  return *found;
}

}  // namespace manager
