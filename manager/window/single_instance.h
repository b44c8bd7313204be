#pragma once

namespace manager {

/// Asks the manager that has the data folder in force to show its window. Whether it has; it gets
/// five seconds. For a process without broker and connection. Main thread.
bool RaiseRunningManager();

}  // namespace manager
