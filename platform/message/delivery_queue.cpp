#include "platform/message/delivery_queue.h"

#include <asio/post.hpp>
#include <chrono>
#include <exception>
#include <string>
#include <utility>

#include "common/log.h"
#include "platform/message/capture_line.h"
#include "platform/message/observed_posts.h"

namespace message {
namespace {

constexpr std::size_t kMaxReceivedBytes = std::size_t{8} << 20;
constexpr std::size_t kRoomyBytes = kMaxReceivedBytes / 2;
constexpr std::chrono::milliseconds kReliefTick(2);
constexpr std::chrono::milliseconds kReliefTurn(10);

std::size_t ReceivedBytes(const Posted& message) {
  return message.sender ? 0 : sizeof message + message.body.size();
}

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
  if (observer) {
    tagIPC_MESSAGE_ITEM seen = message.item;
    seen.data = message.body.data();
    observer(seen);
  }
  Add(std::move(message));
}

bool DeliveryQueue::PostReceived(const tagIPC_MESSAGE_ITEM& item) {
  if (Clients().Recipients(item.target).empty()) return true;
  std::vector<std::uint8_t> body(item.data, item.data + item.dataLength);
  const std::lock_guard lock(mutex);
  Add({nullptr, item, std::move(body)});
  return receivedBytes <= kMaxReceivedBytes;
}

void DeliveryQueue::WhenRoom(std::function<void()> callback) {
  const std::lock_guard lock(mutex);
  if (served == nullptr) return;
  waitingForRoom.push_back(std::move(callback));
  TellRoom();
}

void DeliveryQueue::TellRoom() {
  if (receivedBytes > kRoomyBytes) return;
  for (auto& callback : waitingForRoom) asio::post(*served, std::move(callback));
  waitingForRoom.clear();
}

void DeliveryQueue::Add(Posted message) {
  StartThread();
  receivedBytes += ReceivedBytes(message);
  messages.push_back(std::move(message));
  ++postedCount;
  if (!deliveryInContext) return filled.notify_one();
  if (calledOut || std::this_thread::get_id() == deliveryThread) return;
  calledOut = true;
  asio::post(*served, [] {});
}

void DeliveryQueue::StartThread() {
  if (deliveryThread != std::thread::id()) return;
  std::thread thread([this] { DeliverForever(); });
  deliveryThread = thread.get_id();
  thread.detach();
}

void DeliveryQueue::Serve(asio::io_context& context) {
  const std::lock_guard lock(mutex);
  served = &context;
  StartThread();
  if (!std::exchange(reliefStarted, true)) std::thread([this] { RelieveForever(); }).detach();
  filled.notify_one();
}

void DeliveryQueue::StopServing() {
  std::vector<std::function<void()>> forgotten;  // destroyed after the lock is given up
  Lock lock(mutex);
  forgotten.swap(waitingForRoom);
  asio::post(*std::exchange(served, nullptr), [] {});
  contextFree.wait(lock, [this] { return !contextTaken; });
}

void DeliveryQueue::SetObserver(std::function<void(const tagIPC_MESSAGE_ITEM&)> value) {
  const std::lock_guard lock(mutex);
  observer = std::move(value);
}

void DeliveryQueue::WaitUntilDelivered() {
  std::unique_lock lock(mutex);
  if (std::this_thread::get_id() == deliveryThread) return;
  delivered.wait(lock, [this, last = postedCount] { return deliveredCount >= last; });
}

std::optional<std::uint64_t> DeliveryQueue::DeliveredBefore(
    std::chrono::steady_clock::time_point limit) {
  Lock lock(mutex);
  if (!delivered.wait_until(lock, limit, [this] { return deliveredCount == postedCount; }))
    return std::nullopt;
  return postedCount;
}

void DeliveryQueue::DeliverForever() {
  Lock lock(mutex);
  for (;;) {
    if (!messages.empty()) {
      DeliverFirst(lock);
    } else if (CanRunContext()) {
      RunContextOnce(lock);
    } else {
      idle = true;
      filled.wait(lock, [this] { return !messages.empty() || CanRunContext(); });
      idle = false;
    }
  }
}

void DeliveryQueue::DeliverFirst(Lock& lock) {
  {
    const Posted message = std::move(messages.front());
    messages.pop_front();
    receivedBytes -= ReceivedBytes(message);
    TellRoom();
    delivering = true;
    if (std::exchange(reliefAsleep, false)) relief.notify_one();
    lock.unlock();
    Deliver(message);
  }
  lock.lock();
  delivering = false;
  ++deliveredCount;
  delivered.notify_all();
}

void DeliveryQueue::RunContextOnce(Lock& lock) {
  asio::io_context& context = *served;
  contextTaken = true;
  deliveryInContext = true;
  lock.unlock();
  context.run_one();
  lock.lock();
  deliveryInContext = false;
  calledOut = false;
  ReleaseContext();
}

// Looks now and then whether the context waits for the delivery thread, and sleeps while nothing is
// delivered: so a delivery hardly ever costs a call to this thread.
void DeliveryQueue::RelieveForever() {
  Lock lock(mutex);
  for (;;) {
    const std::uint64_t turns = contextTurns;
    const std::uint64_t count = deliveredCount;
    relief.wait_for(lock, kReliefTick);
    if (delivering && CanRunContext() && contextTurns == turns) {
      RunContextWhileBusy(lock);
    } else if (!delivering && deliveredCount == count) {
      reliefAsleep = true;
      relief.wait(lock, [this] { return !reliefAsleep; });
    }
  }
}

void DeliveryQueue::RunContextWhileBusy(Lock& lock) {
  contextTaken = true;
  while (served != nullptr && !idle) {
    asio::io_context& context = *served;
    lock.unlock();
    context.run_one_for(kReliefTurn);
    lock.lock();
  }
  ReleaseContext();
  filled.notify_one();
}

void DeliveryQueue::ReleaseContext() {
  contextTaken = false;
  ++contextTurns;
  contextFree.notify_all();
}

void ObservePosts(std::function<void(const tagIPC_MESSAGE_ITEM&)> observer) {
  Deliveries().SetObserver(std::move(observer));
}

DeliveryQueue& Deliveries() {
  static auto& queue = *new DeliveryQueue;
  return queue;
}

}  // namespace message
