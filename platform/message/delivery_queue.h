#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>
#include <vector>

#include "platform/message/client_table.h"
#include "platform/message/message_item.h"

namespace message {

/// A posted message with its own copy of the body.
struct Posted {
  Client sender;             // null for another process
  tagIPC_MESSAGE_ITEM item;  // its data pointer is not used
  std::vector<std::uint8_t> body;
};

/// The item's source; the sender's module id if the item leaves it open.
std::uint32_t SourceOf(const tagIPC_MESSAGE_ITEM& item, const Client& sender);

/// Messages on their way, and the thread that hands them to the clients' handlers one at a time.
class DeliveryQueue {
 public:
  /// Posts a message of this process, its source filled in if the sender left it open.
  void Post(Posted message);

  /// Posts a message of another process; its body is copied.
  void PostReceived(const tagIPC_MESSAGE_ITEM& item);

  void WaitUntilDelivered();

 private:
  void Add(Posted message);
  void DeliverForever();

  std::mutex mutex;
  std::condition_variable filled;
  std::condition_variable delivered;
  std::deque<Posted> messages;
  std::uint64_t postedCount = 0;
  std::uint64_t deliveredCount = 0;
  std::thread::id deliveryThread;  // nobody's before the first post
};

/// The queue of this process, never destroyed.
DeliveryQueue& Deliveries();

}  // namespace message
