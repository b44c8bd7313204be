#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "common/protocol/ipc_data_io.h"
#include "manager/companion_service/log_files.h"
#include "platform/message/ipc_message_client.h"

namespace companion {

/// Answers the requests for the logs of a data folder: whether there are any, which, pack them,
/// discard them. docs/messages.md describes the messages. Works on the delivery thread.
class CompanionService {
 public:
  /// Gives up what it is packing once the end has been asked for.
  CompanionService(std::filesystem::path dataFolder, const std::atomic<bool>& endAsked);

 private:
  void OnMessage(const tagIPC_MESSAGE_ITEM& request);
  void AnswerAvailable(const tagIPC_MESSAGE_ITEM& request);
  void AnswerList(const tagIPC_MESSAGE_ITEM& request);
  void AnswerItems(const tagIPC_MESSAGE_ITEM& request, const std::vector<LogFile>& files);
  void PackOffered(const tagIPC_MESSAGE_ITEM& request);
  void DiscardProduced(const tagIPC_MESSAGE_ITEM& request);
  void Answer(const tagIPC_MESSAGE_ITEM& request, std::uint32_t messageId,
              const protocol::CIPCDataIO& body);

  LogFiles logs;
  std::vector<LogFile> offered;
  CIPCMessageClient client;  // last: its end comes before that of what its handler uses
};

}  // namespace companion
