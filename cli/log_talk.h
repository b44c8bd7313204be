#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <vector>

#include "cli/interruptible.h"
#include "common/protocol/log_item.h"
#include "platform/os/child_process.h"

namespace cli {

/// The talk with the companion service, through the plugin's own message helper. One thread.
class LogTalk {
 public:
  using Items = std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>;

  /// An interrupt from now on ends every wait.
  LogTalk();
  LogTalk(const LogTalk&) = delete;
  LogTalk& operator=(const LogTalk&) = delete;
  ~LogTalk();

  /// From now on the end of this process ends every wait.
  void Watch(os::ChildProcess& service) { watched = &service; }

  /// Whether there are logs; nothing when no service answers in time, or when it ends.
  std::optional<bool> AskWhetherThereAreLogs(std::chrono::milliseconds limit);

  /// The log items, the application log among them unless it could not be written. Throws
  /// std::runtime_error when the service ends or does not answer in time.
  Items AskForList(std::chrono::milliseconds limit);

  void AskToPack();

  /// Returns when it is done, or after a moment.
  void AskToDiscard();

  /// Whether the service has done what it was asked last.
  bool IsDone();

  bool HasServiceEnded();

  bool Interrupted() const { return interrupted; }

  /// Why there is no answer.
  std::runtime_error Silence();

 private:
  bool IsOver() { return Interrupted() || HasServiceEnded(); }
  void Post(std::uint32_t messageId, std::uint32_t replyId, bool withByte);
  void PostAndAskWhenDone(std::uint32_t messageId, std::uint32_t replyId, bool withByte);

  template <typename Condition>
  void Wait(std::chrono::milliseconds limit, Condition holds);

  std::atomic<bool> interrupted = false;
  Interruptible interruptible;
  os::ChildProcess* watched = nullptr;

  std::mutex mutex;
  std::condition_variable answered;
  std::optional<bool> available;  // the last answer, taken back when something else is asked
  std::optional<Items> items;
};

}  // namespace cli
