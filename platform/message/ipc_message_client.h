#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "platform/message/message_item.h"
#include "platform/os/export.h"
#include "platform/os/module_pin.h"

namespace message {
struct ClientState;
using Handler = std::function<void(const tagIPC_MESSAGE_ITEM&)>;

/// Waits until every message that this process has posted so far is delivered. Returns at once on
/// the delivery thread. For a program's end and for tests.
UTIL_API void WaitUntilDelivered();

/// The same until this moment of real time. How many messages have been posted to this process so
/// far, those of other processes included; nothing when they are not delivered in time.
UTIL_API std::optional<std::uint64_t> DeliveredBefore(std::chrono::steady_clock::time_point limit);
}  // namespace message

/// One module's end of the message channel.
///
/// A message reaches the client whose module id is its target, or every client subscribed to the
/// group that is its target; never the client that posted it. Handlers run one at a time on the
/// library's delivery thread, in the order a sender posted; what a handler throws is logged there.
/// A handler's module stays loaded while the handler runs, not while it is registered. All
/// functions may be called from any thread, also from a handler.
class UTIL_API CIPCMessageClient {
 public:
  /// `reserved` belongs to the contract and is not used here.
  CIPCMessageClient(std::uint32_t moduleId, bool reserved);

  /// Ends all registrations; a handler that runs at this moment on the delivery thread may still
  /// finish.
  ~CIPCMessageClient();
  CIPCMessageClient(const CIPCMessageClient&) = delete;
  CIPCMessageClient& operator=(const CIPCMessageClient&) = delete;

  /// True. A second subscription changes nothing.
  bool SubscribeIPCMessage(std::uint32_t group, std::uint32_t reserved);

  /// False when the client was not subscribed.
  bool UnSubscribeIPCMessage(std::uint32_t group, std::uint32_t reserved);

  /// Sets the handler of one message id, for messages to this module or to its groups.
  template <typename Callable>
  void RegisterMessageCallback(std::uint32_t messageId, Callable handler) {
    Register(messageId, message::Handler(std::move(handler)), os::AddressInCaller<Callable>());
  }

  /// Sets the handler that gets every message of this client, before the one of its id.
  template <typename Callable>
  void RegisterMessageCallbackAll(Callable handler) {
    RegisterAll(message::Handler(std::move(handler)), os::AddressInCaller<Callable>());
  }

  void UnRegisterMessageCallback(std::uint32_t messageId);
  void UnRegisterMessageCallbackAll();

  /// Copies the body during the call and fills in the source. False for a body over 1 MiB.
  bool PostIPCMessage(const tagIPC_MESSAGE_ITEM& item);

 private:
  void Register(std::uint32_t messageId, message::Handler handler, const void* owner);
  void RegisterAll(message::Handler handler, const void* owner);

  std::shared_ptr<message::ClientState> state;
};
