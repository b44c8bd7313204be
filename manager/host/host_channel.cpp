#include "manager/host/host_channel.h"

#include <utility>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"
#include "platform/duilib/queue/ui_main_queue.h"

namespace manager {
namespace {

template <typename Body>
Body Decoded(const tagIPC_MESSAGE_ITEM& item) {
  Body body;
  protocol::CIPCDataIO io(item.data, item.dataLength);
  protocol::ReadVersioned(io, body);
  return body;
}

}  // namespace

HostChannel::HostChannel(HostChannelHooks called)
    : hooks(std::make_shared<const HostChannelHooks>(std::move(called))),
      client(protocol::kManagerModule, false) {
  using protocol::DiagnoseSummary;
  using protocol::ModuleDescriptor;
  client.SubscribeIPCMessage(protocol::kHostGroup, 0);
  TellBodiesOf<ModuleDescriptor>(protocol::kDescriptorAnswer, hooks->descriptor);
  const auto tellSummary = [this](std::uint32_t messageId, SummaryOf of) {
    if (!hooks->summary) return;
    TellBodiesOf<DiagnoseSummary>(
        messageId, [told = hooks->summary, of](const DiagnoseSummary& body) { told(body, of); });
  };
  tellSummary(protocol::kQuietSummary, SummaryOf::kQuietRun);
  tellSummary(protocol::kRunSummary, SummaryOf::kRunOfPages);
  TellRestarts();
  AnswerRaises();
}

HostChannel::~HostChannel() = default;

// Bodies are read on the delivery thread, where a malformed one is logged.
template <typename Body>
void HostChannel::TellBodiesOf(std::uint32_t messageId, std::function<void(const Body&)> tell) {
  if (!tell) return;
  client.RegisterMessageCallback(
      messageId, [life = std::weak_ptr(hooks), tell](const tagIPC_MESSAGE_ITEM& item) {
        DuiLib::UIMainQueue::dispatch([life, tell, body = Decoded<Body>(item)] {
          if (!life.expired()) tell(body);
        });
      });
}

void HostChannel::TellRestarts() {
  if (!hooks->restart) return;
  client.RegisterMessageCallback(protocol::kRestartRequest,
                                 [life = std::weak_ptr(hooks)](const tagIPC_MESSAGE_ITEM&) {
                                   DuiLib::UIMainQueue::dispatch([life] {
                                     if (const auto living = life.lock()) living->restart();
                                   });
                                 });
}

void HostChannel::AnswerRaises() {
  if (!hooks->raise) return;
  client.RegisterMessageCallback(protocol::kRaiseRequest, [this, life = std::weak_ptr(hooks)](
                                                              const tagIPC_MESSAGE_ITEM& item) {
    DuiLib::UIMainQueue::dispatch([this, life, source = item.source] {
      const auto living = life.lock();
      if (living && living->raise()) Post(source, protocol::kRaiseAnswer, nullptr, 0);
    });
  });
}

void HostChannel::AskForDescriptors() {
  Post(protocol::kHostGroup, protocol::kDescriptorRequest, nullptr, 0);
}

void HostChannel::StartCheck(const protocol::ModuleDescriptor& module) {
  constexpr std::uint8_t kStart = 0;
  Post(module.moduleId, module.detectRequest, &kStart, 1);
}

void HostChannel::StopCheck(const protocol::ModuleDescriptor& module) {
  constexpr std::uint8_t kStop = 1;
  Post(module.moduleId, module.detectRequest, &kStop, 1);
}

void HostChannel::StartRepair(const protocol::ModuleDescriptor& module,
                              const std::vector<std::int32_t>& categories) {
  protocol::CIPCDataIO body;
  protocol::WriteVersioned(body, categories);
  Post(module.moduleId, module.repairRequest, body.Data(), body.Position());
}

void HostChannel::Post(std::uint32_t target, std::uint32_t messageId, const std::uint8_t* data,
                       std::uint32_t length) {
  tagIPC_MESSAGE_ITEM item;
  item.target = target;
  item.messageId = messageId;
  item.dataLength = length;
  item.data = data;
  client.PostIPCMessage(item);
}

}  // namespace manager
