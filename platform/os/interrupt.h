#pragma once

namespace os {

/// From now on the first interrupt (Ctrl-C, or the system's request to end) calls `handler`, which
/// may only touch lock-free atomics; the second ends the program at once with `exitStatus`. For a
/// program's main. Without a handler the first ends the program.
void OnInterrupt(void (*handler)(), int exitStatus);

/// Waits until an interrupt has come since OnInterrupt was last called. Any thread.
void WaitForInterrupt();

}  // namespace os
