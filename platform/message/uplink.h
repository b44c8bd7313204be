#pragma once

#include <memory>

#include "platform/message/message_item.h"

namespace message {

/// The way from this process to the others: its own broker, or the connection to one. Any thread.
class Uplink {
 public:
  virtual ~Uplink() = default;

  /// Relays a message posted here to the processes that it is for. Its source is filled in.
  virtual void Send(const tagIPC_MESSAGE_ITEM& item) = 0;

  /// The ids by which clients of this process are reached may have changed.
  virtual void IdsChanged() = 0;
};

/// Null while this process is on its own.
std::shared_ptr<Uplink> CurrentUplink();

/// Throws std::logic_error when there is one already: a process has one way out.
void SetUplink(std::shared_ptr<Uplink> uplink);
void ClearUplink();

}  // namespace message
