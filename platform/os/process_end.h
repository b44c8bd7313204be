#pragma once

namespace os {

/// Ends the process at once: nothing is flushed, no destructor runs. Any thread.
[[noreturn]] void EndProcess(int exitStatus);

/// Whether the process is being taken down and this is its last thread. The others were ended
/// wherever they were, so a lock may never come free: whoever runs now must not take one. Always
/// false on a system where the other threads live on.
bool IsLastThreadOfEndingProcess();

}  // namespace os
