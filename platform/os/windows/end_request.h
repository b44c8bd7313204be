#pragma once

#include "platform/os/windows/handle.h"

// How one program asks another one to end: through an event named after the process that is asked.
namespace os {

/// The event by which this process is asked to end.
Handle ListenForEndRequests();

/// Asks the process to end. False when it does not listen.
bool RequestEnd(DWORD processId);

}  // namespace os
