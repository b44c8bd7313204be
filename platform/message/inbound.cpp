#include "platform/message/inbound.h"

#include "platform/message/delivery_queue.h"

namespace message {

FrameChannel::Then TakeIn(const Frame& message, FrameChannel& from) {
  if (Deliveries().PostReceived(ItemOf(message))) return FrameChannel::Then::ReadOn;
  Deliveries().WhenRoom([channel = from.shared_from_this()] { channel->Resume(); });
  return FrameChannel::Then::Rest;
}

}  // namespace message
