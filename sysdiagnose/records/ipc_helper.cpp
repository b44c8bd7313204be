#include "sysdiagnose/records/ipc_helper.h"

#include <utility>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/message_ids.h"

namespace orv::sysdiagnose {
namespace {

bool Post(CIPCMessageClient& client, std::uint32_t target, std::uint32_t messageId,
          const protocol::CIPCDataIO& body) {
  tagIPC_MESSAGE_ITEM item;
  item.target = target;
  item.messageId = messageId;
  item.dataLength = body.Position();
  item.data = body.Data();
  return client.PostIPCMessage(item);
}

}  // namespace

IPCHelper& IPCHelper::Instance() {
  static IPCHelper helper;
  return helper;
}

IPCHelper::IPCHelper() : client(protocol::kPluginModule, false) {
  client.SubscribeIPCMessage(protocol::kHostGroup, 0);
  client.RegisterMessageCallbackAll([this](const auto& item) { OnAnyMessage(item); });
  client.RegisterMessageCallback(protocol::kDetectRequest,
                                 [this](const auto& item) { OnDetectRequest(item); });
  client.RegisterMessageCallback(protocol::kLogsAvailableAnswer,
                                 [this](const auto& item) { OnLogsAvailable(item); });
  Register(std::make_unique<CIPCServerProc<IPCHelper, void, std::vector<std::int32_t>>>(
      protocol::kRepairRequest, this, &IPCHelper::OnRepairRequest));
  Register(std::make_unique<CIPCServerProc<IPCHelper, void, LogItems>>(
      protocol::kLogListAnswer, this, &IPCHelper::OnLogList));
}

IPCHelper::~IPCHelper() {
  client.UnSubscribeIPCMessage(protocol::kHostGroup, 0);
  client.UnRegisterMessageCallbackAll();
}

void IPCHelper::SetDetectSlot(DetectSlot slot) {
  const std::lock_guard lock(mutex);
  detectSlot = std::move(slot);
}

void IPCHelper::SetRepairSlot(RepairSlot slot) {
  const std::lock_guard lock(mutex);
  repairSlot = std::move(slot);
}

void IPCHelper::SetLogsAvailableSlot(LogsAvailableSlot slot) {
  const std::lock_guard lock(mutex);
  logsAvailableSlot = std::move(slot);
}

void IPCHelper::SetLogListSlot(LogListSlot slot) {
  const std::lock_guard lock(mutex);
  logListSlot = std::move(slot);
}

void IPCHelper::PostSummary(DiagnoseSummary& summary, SummaryMode mode) {
  FillSummary(summary);
  if (mode == ModeNone) return;
  protocol::CIPCDataIO body;
  protocol::WriteVersioned(body, summary);
  Post(client, protocol::kHostGroup,
       mode == ModeQuiet ? protocol::kQuietSummary : protocol::kRunSummary, body);
}

void IPCHelper::Register(std::unique_ptr<CIPCServerProcBase> procedure) {
  client.RegisterMessageCallback(procedure->Id(),
                                 [this, served = procedure.get()](const auto& item) {
                                   const std::lock_guard lock(mutex);
                                   served->Dispatch(item);
                                 });
  procedures.push_back(std::move(procedure));
}

void IPCHelper::OnAnyMessage(const tagIPC_MESSAGE_ITEM& item) {
  if (item.messageId != protocol::kDescriptorRequest) return;
  protocol::CIPCDataIO body;
  protocol::WriteVersioned(body, PluginDescriptor());
  Post(client, item.source, protocol::kDescriptorAnswer, body);
}

void IPCHelper::OnDetectRequest(const tagIPC_MESSAGE_ITEM& item) {
  const std::lock_guard lock(mutex);
  if (item.data != nullptr && item.dataLength == 1 && detectSlot) detectSlot(item.data[0] == 0);
}

void IPCHelper::OnLogsAvailable(const tagIPC_MESSAGE_ITEM& item) {
  const std::lock_guard lock(mutex);
  if (item.data != nullptr && item.dataLength >= 1 && logsAvailableSlot)
    logsAvailableSlot(item.data[0]);
}

void IPCHelper::OnRepairRequest(std::vector<std::int32_t>& categories) {
  if (repairSlot) repairSlot(categories);
}

void IPCHelper::OnLogList(LogItems& items) {
  if (logListSlot) logListSlot(items);
}

}  // namespace orv::sysdiagnose
