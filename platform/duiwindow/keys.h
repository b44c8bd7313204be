#pragma once

#include <wx/event.h>

#include <optional>

#include "platform/duilib/window/key.h"

namespace duiwindow {

/// The key that controls know; nothing for any other, and for those that a modifier gives another
/// meaning.
std::optional<DuiLib::Key> KeyOf(const wxKeyEvent& event);

}  // namespace duiwindow
