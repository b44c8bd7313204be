#pragma once

#include <vector>

#include "platform/duilib/tree/paint_manager.h"

namespace DuiLib {

/// What a control is to somebody who hears the window.
enum class ToldRole { kText, kLink, kButton, kCheckBox, kChoice, kList, kRow };

/// A control as it is told to somebody who does not see it.
struct ToldControl {
  CControlUI* control = nullptr;
  ToldRole role = ToldRole::kText;
  CDuiString name;
};

/// The shown controls of a window that say or do something, in tree order. What has no text of its
/// own is called by its tooltip, or by the first text in it or behind it.
DUILIB_API std::vector<ToldControl> ToldControls(const CPaintManagerUI& window);

}  // namespace DuiLib
