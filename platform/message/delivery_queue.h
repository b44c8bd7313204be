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
  Client sender;
  tagIPC_MESSAGE_ITEM item;  // its data pointer is not used
  std::vector<std::uint8_t> body;
};

/// Messages on their way, and the thread that hands them to the clients' handlers one at a time.
class DeliveryQueue {
 public:
  void Post(Posted message);
  void WaitUntilDelivered();

 private:
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
