#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/message/broker.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/child_process.h"
#include "startup/options.h"

namespace manager {

/// A message that a plugin posted.
struct PostedMessage {
  std::uint32_t messageId;
  std::uint32_t replyId;
  std::vector<std::uint8_t> body;
};

/// The manager's end of the messages: the broker in its data folder, the companion service beside
/// it, and what plugins of this process post. UI thread only, one at a time.
class MessageHub {
 public:
  using Moment = std::chrono::steady_clock::time_point;

  /// Where the manager of the data folder in force serves.
  static std::filesystem::path Socket();

  /// Starts broker and service; waits until the service answers. Throws message::BrokerRuns when
  /// another manager has this data folder, std::runtime_error when broker or service cannot be had
  /// before the limit.
  MessageHub(const startup::Options& options, Moment limit);
  MessageHub(const MessageHub&) = delete;
  MessageHub& operator=(const MessageHub&) = delete;
  ~MessageHub();

  /// Posts a message to the plugin; answers of before are forgotten. False when its body is longer
  /// than a message can be.
  bool Send(std::uint32_t messageId, const std::vector<std::uint8_t>& body);

  /// The body of the first answer to the last message sent.
  std::optional<std::vector<std::uint8_t>> Answer();

  /// From now on what plugins post is kept.
  void KeepPosts();
  /// What they have posted since the last call, in order.
  std::vector<PostedMessage> TakePosted();

  /// Whether the companion service may still be at what a plugin asked of it.
  bool IsCompanionAsked();

  /// Waits until the companion service has done what it was asked, its answers received. Throws
  /// std::runtime_error when it has not by then, and never waits again.
  void WaitForCompanion(Moment limit);

 private:
  bool AskCompanion(std::uint32_t asModule, Moment limit);
  void OnPost(const tagIPC_MESSAGE_ITEM& item);
  void OnMessage(const tagIPC_MESSAGE_ITEM& item);

  std::mutex mutex;
  std::condition_variable companionAnswered;
  bool companionAsked = false;
  bool companionDone = false;
  bool companionLost = false;
  std::vector<PostedMessage> posted;
  std::optional<std::vector<std::uint8_t>> answer;

  const std::filesystem::path socket;
  message::Broker broker;
  CIPCMessageClient client;
  std::unique_ptr<os::ChildProcess> service;
};

}  // namespace manager
