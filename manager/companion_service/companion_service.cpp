#include "manager/companion_service/companion_service.h"

#include <string>
#include <utility>

#include "common/log.h"
#include "common/path_text.h"
#include "common/protocol/ipc_serialize.h"
#include "common/protocol/log_item.h"
#include "common/protocol/message_ids.h"

namespace companion {
namespace {

std::vector<protocol::SYSTEM_DETECT_LOG_ITEM> ItemsOf(const std::vector<LogFile>& files) {
  std::vector<protocol::SYSTEM_DETECT_LOG_ITEM> items;
  for (const LogFile& log : files)
    items.push_back({static_cast<std::int32_t>(log.module), common::PathText(log.file)});
  return items;
}

}  // namespace

CompanionService::CompanionService(std::filesystem::path dataFolder)
    : logs(std::move(dataFolder)), client(protocol::kCompanionModule, false) {
  client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) { OnMessage(item); });
}

void CompanionService::OnMessage(const tagIPC_MESSAGE_ITEM& request) {
  constexpr struct {
    std::uint32_t messageId;
    void (CompanionService::*serve)(const tagIPC_MESSAGE_ITEM&);
  } kRequests[] = {{protocol::kLogsAvailableRequest, &CompanionService::AnswerAvailable},
                   {protocol::kLogListRequest, &CompanionService::AnswerList},
                   {protocol::kPackRequest, &CompanionService::PackOffered},
                   {protocol::kDiscardRequest, &CompanionService::DiscardProduced}};
  for (const auto& [messageId, serve] : kRequests)
    if (messageId == request.messageId) (this->*serve)(request);
}

void CompanionService::AnswerAvailable(const tagIPC_MESSAGE_ITEM& request) {
  const bool available = !logs.Ready().empty();
  protocol::CIPCDataIO body;
  protocol::Write(body, available);
  Answer(request, protocol::kLogsAvailableAnswer, body);
}

// What lies ready is told at once; the application log follows when it is written.
void CompanionService::AnswerList(const tagIPC_MESSAGE_ITEM& request) {
  offered = logs.Ready();
  AnswerItems(request, offered);
  if (offered.empty()) return;
  offered.push_back(logs.ProduceApplicationLog());
  AnswerItems(request, {offered.back()});
}

void CompanionService::AnswerItems(const tagIPC_MESSAGE_ITEM& request,
                                   const std::vector<LogFile>& files) {
  protocol::CIPCDataIO body;
  protocol::WriteVersioned(body, ItemsOf(files));
  Answer(request, protocol::kLogListAnswer, body);
}

void CompanionService::PackOffered(const tagIPC_MESSAGE_ITEM&) {
  if (offered.empty()) return;
  const std::filesystem::path archive = logs.Pack(std::exchange(offered, {}));
  logs.Discard();
  COMMON_LOG_INFO(log4cxx::Logger::getLogger("orv.companion"),
                  "the logs are packed in " + common::PathText(archive));
}

void CompanionService::DiscardProduced(const tagIPC_MESSAGE_ITEM&) {
  offered.clear();
  logs.Discard();
}

void CompanionService::Answer(const tagIPC_MESSAGE_ITEM& request, std::uint32_t messageId,
                              const protocol::CIPCDataIO& body) {
  tagIPC_MESSAGE_ITEM answer;
  answer.target = request.source;
  answer.messageId = messageId;
  answer.dataLength = body.Position();
  answer.data = body.Data();
  client.PostIPCMessage(answer);
}

}  // namespace companion
