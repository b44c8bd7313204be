#pragma once

#include <string_view>

#include "platform/duilib/tree/control.h"

namespace DuiLib {

enum class AttributeResult { kSet, kUnknown, kMalformed };

/// Sets a property of a control by the name that layouts give it. What the control's class does not
/// know is asked of the class it derives from.
AttributeResult SetAttribute(CControlUI& control, std::wstring_view name, std::wstring_view value);

/// A new control of the class that layouts name so; null if there is none.
CControlUI* MakeControl(std::wstring_view className);

}  // namespace DuiLib
