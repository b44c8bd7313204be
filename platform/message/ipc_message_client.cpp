#include "platform/message/ipc_message_client.h"

#include <string>
#include <utility>
#include <vector>

#include "common/log.h"
#include "platform/message/capture_line.h"
#include "platform/message/client_table.h"
#include "platform/message/delivery_queue.h"
#include "platform/message/frame.h"
#include "platform/message/uplink.h"
#include "platform/os/process_end.h"

namespace {

message::Registration MakeRegistration(message::Handler handler, const void* owner) {
  return {std::make_shared<const message::Handler>(std::move(handler)),
          os::ModuleFileOfAddress(owner)};
}

void TellIdsChanged() {
  if (const auto uplink = message::CurrentUplink()) uplink->IdsChanged();
}

}  // namespace

CIPCMessageClient::CIPCMessageClient(std::uint32_t moduleId, bool /*reserved*/)
    : state(message::Clients().Add(moduleId)) {
  TellIdsChanged();
}

CIPCMessageClient::~CIPCMessageClient() {
  if (os::IsLastThreadOfEndingProcess()) return;
  message::Clients().Remove(state);
  TellIdsChanged();
}

bool CIPCMessageClient::SubscribeIPCMessage(std::uint32_t group, std::uint32_t /*reserved*/) {
  message::Clients().Subscribe(state, group);
  TellIdsChanged();
  return true;
}

bool CIPCMessageClient::UnSubscribeIPCMessage(std::uint32_t group, std::uint32_t /*reserved*/) {
  const bool wasSubscribed = message::Clients().Unsubscribe(state, group);
  TellIdsChanged();
  return wasSubscribed;
}

void CIPCMessageClient::UnRegisterMessageCallback(std::uint32_t messageId) {
  message::Clients().Unregister(state, messageId);
}

void CIPCMessageClient::UnRegisterMessageCallbackAll() {
  message::Clients().Unregister(state, std::nullopt);
}

void CIPCMessageClient::Register(std::uint32_t messageId, message::Handler handler,
                                 const void* owner) {
  message::Clients().Register(state, messageId, MakeRegistration(std::move(handler), owner));
}

void CIPCMessageClient::RegisterAll(message::Handler handler, const void* owner) {
  message::Clients().Register(state, std::nullopt, MakeRegistration(std::move(handler), owner));
}

bool CIPCMessageClient::PostIPCMessage(const tagIPC_MESSAGE_ITEM& item) {
  if (item.dataLength > message::kMaxBodyBytes || (item.dataLength > 0 && item.data == nullptr)) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.message"),
                     "message " + message::HexNumber(item.messageId) + " refused: a body of " +
                         std::to_string(item.dataLength) + " bytes");
    return false;
  }
  std::vector<std::uint8_t> body(item.data, item.data + item.dataLength);
  message::Deliveries().Post({state, item, std::move(body)});
  if (const auto uplink = message::CurrentUplink()) {
    tagIPC_MESSAGE_ITEM sent = item;
    sent.source = message::SourceOf(item, state);
    uplink->Send(sent);
  }
  return true;
}

namespace message {
void WaitUntilDelivered() {
  Deliveries().WaitUntilDelivered();
}

std::optional<std::uint64_t> DeliveredBefore(std::chrono::steady_clock::time_point limit) {
  return Deliveries().DeliveredBefore(limit);
}
}  // namespace message
