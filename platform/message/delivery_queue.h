#pragma once

#include <asio/io_context.hpp>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
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
///
/// That thread also runs the context of the process's sockets while it has nothing to deliver: a
/// message from another process reaches its handler without a change of threads. While handlers
/// keep it busy, a second thread runs the context instead.
class DeliveryQueue {
 public:
  /// Posts a message of this process, its source filled in if the sender left it open.
  void Post(Posted message);

  /// Posts a message of another process, its body copied, if it reaches a client here. False when
  /// so much waits that who reads them shall rest until there is room.
  bool PostReceived(const tagIPC_MESSAGE_ITEM& item);

  /// Calls back once, in the context, when there is room for received messages. Not any more when
  /// no context is served.
  void WhenRoom(std::function<void()> callback);

  /// Sees each message that Post takes; null for none.
  void SetObserver(std::function<void(const tagIPC_MESSAGE_ITEM&)> value);

  void WaitUntilDelivered();

  /// How many messages were posted; nothing when they are not all delivered by then.
  std::optional<std::uint64_t> DeliveredBefore(std::chrono::steady_clock::time_point limit);

  /// Runs the context, which always has work, from now on. One context at a time.
  void Serve(asio::io_context& context);

  /// Returns when no thread runs the context any more. Who waits for room is forgotten.
  void StopServing();

 private:
  using Lock = std::unique_lock<std::mutex>;

  void Add(Posted message);
  void TellRoom();
  void StartThread();
  void DeliverForever();
  void DeliverFirst(Lock& lock);
  bool CanRunContext() const { return served != nullptr && !contextTaken; }
  void RunContextOnce(Lock& lock);
  void RelieveForever();
  void RunContextWhileBusy(Lock& lock);
  void ReleaseContext();

  std::mutex mutex;
  std::function<void(const tagIPC_MESSAGE_ITEM&)> observer;
  std::condition_variable filled;
  std::condition_variable delivered;
  std::deque<Posted> messages;
  std::size_t receivedBytes = 0;  // that received messages take while they wait
  std::vector<std::function<void()>> waitingForRoom;
  std::uint64_t postedCount = 0;
  std::uint64_t deliveredCount = 0;
  std::thread::id deliveryThread;  // nobody's before the first post
  bool delivering = false;         // a handler runs
  bool idle = false;               // the delivery thread has neither messages nor the context

  asio::io_context* served = nullptr;
  bool contextTaken = false;       // some thread runs it
  bool deliveryInContext = false;  // the delivery thread does, and has to be called out for a post
  bool calledOut = false;
  std::uint64_t contextTurns = 0;
  std::condition_variable contextFree;

  std::condition_variable relief;
  bool reliefStarted = false;
  bool reliefAsleep = false;
};

/// The queue of this process, never destroyed.
DeliveryQueue& Deliveries();

}  // namespace message
