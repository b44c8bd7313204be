#include "sysdiagnose/records/ipc_helper.h"

#include <utility>

#include "sysdiagnose/records/message_ids.h"

namespace orv::sysdiagnose {
namespace {

bool Post(CIPCMessageClient& client, std::uint32_t target, std::uint32_t messageId,
          const CIPCDataIO& body) {
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

IPCHelper::IPCHelper() : client(ipc::kPluginModule, false) {
  client.SubscribeIPCMessage(ipc::kHostGroup, 0);
  client.RegisterMessageCallbackAll([this](const auto& item) { OnAnyMessage(item); });
  client.RegisterMessageCallback(ipc::kDetectRequest,
                                 [this](const auto& item) { OnDetectRequest(item); });
  client.RegisterMessageCallback(ipc::kLogsAvailableAnswer,
                                 [this](const auto& item) { OnLogsAvailable(item); });
  Register(std::make_unique<CIPCServerProc<IPCHelper, void, std::vector<std::int32_t>>>(
      ipc::kRepairRequest, this, &IPCHelper::OnRepairRequest));
  Register(std::make_unique<CIPCServerProc<IPCHelper, void, std::vector<SYSTEM_DETECT_LOG_ITEM>>>(
      ipc::kLogListAnswer, this, &IPCHelper::OnLogList));
}

IPCHelper::~IPCHelper() {
  client.UnSubscribeIPCMessage(ipc::kHostGroup, 0);
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
  CIPCDataIO body;
  WriteSummary(body, summary);
  Post(client, ipc::kHostGroup, mode == ModeQuiet ? ipc::kQuietSummary : ipc::kRunSummary, body);
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
  if (item.messageId != ipc::kDescriptorRequest) return;
  CIPCDataIO body;
  WriteDescriptor(body);
  Post(client, item.source, ipc::kDescriptorAnswer, body);
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

void IPCHelper::OnLogList(std::vector<SYSTEM_DETECT_LOG_ITEM>& items) {
  if (logListSlot) logListSlot(items);
}

}  // namespace orv::sysdiagnose
