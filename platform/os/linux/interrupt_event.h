#pragma once

namespace os {

/// A descriptor that can be read as soon as an interrupt has come since OnInterrupt was last
/// called; -1 when there is none. Whoever waits for it leaves its content.
int InterruptEvent();

}  // namespace os
