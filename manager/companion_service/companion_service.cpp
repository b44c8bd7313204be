#include "manager/companion_service/companion_service.h"

#include <exception>
#include <stdexcept>
#include <string>
#include <utility>

#include "common/log.h"
#include "common/protocol/ipc_serialize.h"
#include "common/protocol/log_item.h"
#include "common/protocol/message_ids.h"
#include "manager/companion_service/shown_path.h"
#include "platform/message/frame.h"

namespace companion {
namespace {

using LogItems = std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>;

log4cxx::LoggerPtr Logger() {
  return log4cxx::Logger::getLogger("orv.companion");
}

LogItems ItemsOf(const std::vector<LogFile>& files) {
  LogItems items;
  for (const LogFile& log : files)
    items.push_back({static_cast<std::int32_t>(log.module), ShownPath(log.file)});
  return items;
}

// Leaves as many files as one message can tell of.
void CutToMessage(std::vector<LogFile>& files) {
  std::size_t size = sizeof protocol::kVersion + protocol::SizeOf(LogItems{});
  std::size_t told = 0;
  for (const auto& item : ItemsOf(files)) {
    size += protocol::SizeOf(item);
    if (size > message::kMaxBodyBytes) break;
    ++told;
  }
  if (told == files.size()) return;
  COMMON_LOG_WARN(Logger(), "the list of logs is cut to the first " + std::to_string(told) +
                                " of " + std::to_string(files.size()) +
                                ": a message holds no more");
  files.resize(told);
}

}  // namespace

CompanionService::CompanionService(std::filesystem::path dataFolder,
                                   const std::atomic<bool>& endAsked)
    : logs(std::move(dataFolder), endAsked), client(protocol::kCompanionModule, false) {
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
  for (const auto& [messageId, serve] : kRequests) {
    if (messageId != request.messageId) continue;
    try {
      (this->*serve)(request);
    } catch (const std::exception& error) {
      COMMON_LOG_ERROR(Logger(), error.what());
      logs.NoteFailure(error.what());
    }
  }
}

void CompanionService::AnswerAvailable(const tagIPC_MESSAGE_ITEM& request) {
  const bool available = !logs.Ready().empty();
  protocol::CIPCDataIO body;
  protocol::Write(body, available);
  Answer(request, protocol::kLogsAvailableAnswer, body);
}

// What lies ready is told at once; the application log follows when it is written.
void CompanionService::AnswerList(const tagIPC_MESSAGE_ITEM& request) {
  logs.ForgetFailure();
  offered = logs.Ready();
  CutToMessage(offered);
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
  logs.ForgetFailure();
  if (offered.empty()) throw std::runtime_error("no logs are on offer");
  const std::filesystem::path archive = logs.Pack(std::exchange(offered, {}));
  logs.Discard();
  COMMON_LOG_INFO(Logger(), "the logs are packed in " + ShownPath(archive));
}

void CompanionService::DiscardProduced(const tagIPC_MESSAGE_ITEM&) {
  offered.clear();
  logs.ForgetFailure();
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
