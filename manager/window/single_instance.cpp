#include "manager/window/single_instance.h"

#include <chrono>
#include <future>
#include <memory>
#include <mutex>

#include "common/protocol/message_ids.h"
#include "manager/host/message_hub.h"
#include "platform/message/broker_connection.h"
#include "platform/message/ipc_message_client.h"

namespace manager {
namespace {

constexpr std::uint32_t kSecondStart = protocol::kHostModule + 3;
constexpr std::chrono::seconds kPatience(5);

}  // namespace

bool RaiseRunningManager() {
  const auto raised = std::make_shared<std::promise<void>>();
  auto answer = raised->get_future();
  CIPCMessageClient client(kSecondStart, false);
  client.RegisterMessageCallback(
      protocol::kRaiseAnswer,
      [raised, told = std::make_shared<std::once_flag>()](const tagIPC_MESSAGE_ITEM&) {
        std::call_once(*told, [&raised = *raised] { raised.set_value(); });
      });
  if (!message::ConnectToBroker(MessageHub::Socket())) return false;
  tagIPC_MESSAGE_ITEM item;
  item.target = protocol::kManagerModule;
  item.messageId = protocol::kRaiseRequest;
  client.PostIPCMessage(item);
  const bool isRaised = answer.wait_for(kPatience) == std::future_status::ready;
  message::DisconnectFromBroker();
  return isRaised;
}

}  // namespace manager
