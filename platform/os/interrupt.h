#pragma once

namespace os {

/// From now on the first interrupt (Ctrl-C, or the system's request to end) calls `handler`, which
/// may only touch lock-free atomics; the second ends the program at once with `exitStatus`. For a
/// program's main. Without a handler the first ends the program.
void OnInterrupt(void (*handler)(), int exitStatus);

}  // namespace os
