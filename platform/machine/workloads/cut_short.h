#pragma once

#include "platform/os/export.h"

namespace machine {

/// From now on, or no longer, the long tests of this process do a small part of their work only,
/// those under way too, and say so. For a person who waits for a run to end. Any thread, also a
/// signal handler.
UTIL_API void CutTestsShort(bool cut);

UTIL_API bool AreTestsCutShort();

}  // namespace machine
