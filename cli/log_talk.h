#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <vector>

#include "cli/interruptible.h"
#include "common/protocol/log_item.h"
#include "common/protocol/message_ids.h"

namespace cli {

/// The talk with the companion service, through the plugin's own message helper.
class LogTalk {
 public:
  using Items = std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>;

  /// An interrupt from now on ends every wait.
  LogTalk();
  LogTalk(const LogTalk&) = delete;
  LogTalk& operator=(const LogTalk&) = delete;
  ~LogTalk();

  /// Whether there are logs; nothing when no service answers in time.
  std::optional<bool> AskWhetherThereAreLogs(std::chrono::milliseconds limit);

  /// The log items, up to and with the application log or what has come at the limit.
  Items AskForList(std::chrono::milliseconds limit);

  void AskToPack() { Post(protocol::kPackRequest, 0, true); }
  void AskToDiscard() { Post(protocol::kDiscardRequest, 0, true); }

  bool Interrupted() const { return interrupted; }

 private:
  void Post(std::uint32_t messageId, std::uint32_t replyId, bool withByte);

  template <typename Condition>
  void Wait(std::chrono::milliseconds limit, Condition holds);

  std::atomic<bool> interrupted = false;
  Interruptible interruptible;

  std::mutex mutex;
  std::condition_variable answered;
  std::optional<bool> available;
  Items items;
};

}  // namespace cli
