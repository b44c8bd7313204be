#include "platform/message/delivery_queue.h"

#include <exception>
#include <string>
#include <utility>

#include "common/log.h"
#include "platform/message/capture_line.h"

namespace message {
namespace {

void LogThrown(const tagIPC_MESSAGE_ITEM& item, const std::string& what) {
  COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.message"),
                   "the handler of message " + HexNumber(item.messageId) + " threw: " + what);
}

void Call(const Handler& handler, const tagIPC_MESSAGE_ITEM& item) {
  try {
    handler(item);
  } catch (const std::exception& error) {
    LogThrown(item, error.what());
  } catch (...) {
    LogThrown(item, "something that is no std::exception");
  }
}

// Calls one handler while its module is pinned. Nothing of the module may be held while the pin is
// taken or given up: the latter may unload it here.
void CallSlot(const Client& client, HandlerSlot slot, const tagIPC_MESSAGE_ITEM& item) {
  while (const auto module = Clients().ModuleOf(client, slot, item.target)) {
    bool loaded = false;
    const os::ModulePin pin = os::ModulePin::OfFile(*module, loaded);
    if (!loaded) {
      Clients().DropOrphan(client, slot, *module);
      continue;
    }
    const auto handler = Clients().HandlerOf(client, slot, item.target, *module);
    if (!handler) continue;  // replaced or removed since; look again
    Call(*handler, item);
    return;
  }
}

void Deliver(const Posted& message) {
  tagIPC_MESSAGE_ITEM item = message.item;
  item.data = message.body.empty() ? nullptr : message.body.data();
  for (const Client& client : Clients().Recipients(item.target)) {
    if (client == message.sender) continue;
    CallSlot(client, std::nullopt, item);
    CallSlot(client, item.messageId, item);
  }
}

}  // namespace

std::uint32_t SourceOf(const tagIPC_MESSAGE_ITEM& item, const Client& sender) {
  return item.source == tagIPC_MESSAGE_ITEM().source ? sender->moduleId : item.source;
}

void DeliveryQueue::Post(Posted message) {
  const std::lock_guard lock(mutex);
  // Under the lock, so that a capture shows the order of delivery.
  CaptureMessage(message.item, message.body);
  message.item.source = SourceOf(message.item, message.sender);
  Add(std::move(message));
}

void DeliveryQueue::PostReceived(const tagIPC_MESSAGE_ITEM& item) {
  std::vector<std::uint8_t> body(item.data, item.data + item.dataLength);
  const std::lock_guard lock(mutex);
  Add({nullptr, item, std::move(body)});
}

void DeliveryQueue::Add(Posted message) {
  if (deliveryThread == std::thread::id()) {
    std::thread thread([this] { DeliverForever(); });
    deliveryThread = thread.get_id();
    thread.detach();
  }
  messages.push_back(std::move(message));
  ++postedCount;
  filled.notify_one();
}

void DeliveryQueue::WaitUntilDelivered() {
  std::unique_lock lock(mutex);
  if (std::this_thread::get_id() == deliveryThread) return;
  delivered.wait(lock, [this, last = postedCount] { return deliveredCount >= last; });
}

void DeliveryQueue::DeliverForever() {
  std::unique_lock lock(mutex);
  for (;;) {
    filled.wait(lock, [this] { return !messages.empty(); });
    {
      const Posted message = std::move(messages.front());
      messages.pop_front();
      lock.unlock();
      Deliver(message);
    }
    lock.lock();
    ++deliveredCount;
    delivered.notify_all();
  }
}

DeliveryQueue& Deliveries() {
  static auto& queue = *new DeliveryQueue;
  return queue;
}

}  // namespace message
