#include "manager/companion_service/companion_service.h"

#include <string>
#include <utility>

#include "common/log.h"
#include "common/path_text.h"

namespace companion {
namespace {

constexpr std::uint32_t kModule = 0x3B0000;
constexpr std::uint32_t kAvailableAnswer = 0x3C0001;
constexpr std::uint32_t kListAnswer = 0x3C0002;

void AddNumber(std::vector<std::uint8_t>& body, std::uint32_t number) {
  for (int shift = 0; shift < 32; shift += 8)
    body.push_back(static_cast<std::uint8_t>(number >> shift));
}

// Version 1 and a vector of module numbers and paths.
std::vector<std::uint8_t> ListBody(const std::vector<LogFile>& files) {
  std::vector<std::uint8_t> body;
  AddNumber(body, 1);
  AddNumber(body, static_cast<std::uint32_t>(files.size()));
  for (const LogFile& log : files) {
    const std::string path = common::PathText(log.file);
    AddNumber(body, static_cast<std::uint32_t>(log.module));
    AddNumber(body, static_cast<std::uint32_t>(path.size()));
    body.insert(body.end(), path.begin(), path.end());
  }
  return body;
}

}  // namespace

CompanionService::CompanionService(std::filesystem::path dataFolder)
    : logs(std::move(dataFolder)), client(kModule, false) {
  client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) { OnMessage(item); });
}

void CompanionService::OnMessage(const tagIPC_MESSAGE_ITEM& request) {
  constexpr struct {
    std::uint32_t messageId;
    void (CompanionService::*serve)(const tagIPC_MESSAGE_ITEM&);
  } kRequests[] = {{0x3B0001, &CompanionService::AnswerAvailable},
                   {0x3B0002, &CompanionService::AnswerList},
                   {0x3B0003, &CompanionService::PackOffered},
                   {0x3B0004, &CompanionService::DiscardProduced}};
  for (const auto& [messageId, serve] : kRequests)
    if (messageId == request.messageId) (this->*serve)(request);
}

void CompanionService::AnswerAvailable(const tagIPC_MESSAGE_ITEM& request) {
  const bool available = !logs.Ready().empty();
  Answer(request, kAvailableAnswer, {static_cast<std::uint8_t>(available ? 1 : 0)});
}

// What lies ready is told at once; the application log follows when it is written.
void CompanionService::AnswerList(const tagIPC_MESSAGE_ITEM& request) {
  offered = logs.Ready();
  Answer(request, kListAnswer, ListBody(offered));
  if (offered.empty()) return;
  offered.push_back(logs.ProduceApplicationLog());
  Answer(request, kListAnswer, ListBody({offered.back()}));
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
                              const Body& body) {
  tagIPC_MESSAGE_ITEM answer;
  answer.target = request.source;
  answer.messageId = messageId;
  answer.dataLength = static_cast<std::uint32_t>(body.size());
  answer.data = body.data();
  client.PostIPCMessage(answer);
}

}  // namespace companion
