#pragma once

#include "platform/os/windows/handle.h"

namespace os {

/// Set as soon as an interrupt has come since OnInterrupt was last called.
HANDLE InterruptEvent();

}  // namespace os
