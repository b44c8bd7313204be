#pragma once

#include <cstddef>

#include "platform/duilib/tree/container.h"

namespace DuiLib {

/// The first control, in tree order, that `fits`; null if none does.
template <typename Fits>
CControlUI* FindInTree(CControlUI& below, const Fits& fits) {
  if (fits(below)) return &below;
  const auto* const container = dynamic_cast<CContainerUI*>(&below);
  if (container == nullptr) return nullptr;
  for (std::size_t index = 0; index < container->GetCount(); ++index) {
    if (CControlUI* const found = FindInTree(*container->GetItemAt(index), fits)) return found;
  }
  return nullptr;
}

/// Calls `visit` with each control in tree order; it must not change the tree.
template <typename Visit>
void ForEachInTree(CControlUI& below, const Visit& visit) {
  FindInTree(below, [&](CControlUI& control) {
    visit(control);
    return false;
  });
}

}  // namespace DuiLib
