#pragma once

#include <functional>

#include "platform/message/message_item.h"
#include "platform/os/export.h"

namespace message {

/// From now on calls `observer` with every message that this process posts, its source filled in
/// and its body in place during the call, in the order of delivery and on the thread that posts; it
/// must not post. Null ends that: no call runs or comes any more. For the program, not for plugins.
UTIL_API void ObservePosts(std::function<void(const tagIPC_MESSAGE_ITEM&)> observer);

}  // namespace message
