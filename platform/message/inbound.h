#pragma once

#include "platform/message/frame_channel.h"

namespace message {

/// Hands a message from another process to the clients of this one. While their handlers leave too
/// much waiting, the channel that it came through rests.
FrameChannel::Then TakeIn(const Frame& message, FrameChannel& from);

}  // namespace message
