#include "manager/host/message_hub.h"

#include <stdexcept>
#include <utility>

#include "common/protocol/message_ids.h"
#include "platform/message/observed_posts.h"
#include "platform/os/paths.h"
#include "startup/diagnosis/companion_process.h"

namespace manager {
namespace {

using namespace std::chrono_literals;

// Asks whether the service answers and whether it is done; it does one thing after the other.
constexpr std::uint32_t kCallingModule = protocol::kHostModule + 1;
constexpr std::uint32_t kFenceModule = protocol::kHostModule + 2;
constexpr auto kCallAgain = 50ms;

bool IsOfHost(std::uint32_t module) {
  return module == protocol::kHostModule || module == kCallingModule || module == kFenceModule;
}

std::vector<std::uint8_t> BodyOf(const tagIPC_MESSAGE_ITEM& item) {
  return {item.data, item.data + item.dataLength};
}

bool PostFrom(CIPCMessageClient& client, std::uint32_t target, std::uint32_t messageId,
              std::uint32_t replyId, const std::vector<std::uint8_t>& body) {
  tagIPC_MESSAGE_ITEM item;
  item.target = target;
  item.messageId = messageId;
  item.replyId = replyId;
  item.dataLength = static_cast<std::uint32_t>(body.size());
  item.data = body.data();
  return client.PostIPCMessage(item);
}

}  // namespace

std::filesystem::path MessageHub::Socket() {
  return os::DataFolder() / "manager.sock";
}

MessageHub::MessageHub(const startup::Options& options, Moment limit)
    : socket(Socket()),
      broker(socket),
      client(protocol::kHostModule, false),
      service(startup::StartCompanionService(options, socket)) {
  client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) { OnMessage(item); });
  // What is posted before the service listens is lost, and some of it may be answered late.
  while (!AskCompanion(kCallingModule, std::chrono::steady_clock::now() + kCallAgain)) {
    if (service->EndsWithin(0ms)) throw std::runtime_error("the companion service has ended");
    if (std::chrono::steady_clock::now() > limit)
      throw std::runtime_error("the companion service does not answer");
  }
}

void MessageHub::KeepPosts() {
  message::ObservePosts([this](const tagIPC_MESSAGE_ITEM& item) { OnPost(item); });
}

MessageHub::~MessageHub() {
  message::ObservePosts({});
  message::DeliveredBefore(std::chrono::steady_clock::now() + 1s);
}

bool MessageHub::Send(std::uint32_t messageId, const std::vector<std::uint8_t>& body) {
  {
    const std::lock_guard lock(mutex);
    answer.reset();
  }
  return PostFrom(client, protocol::kPluginModule, messageId, protocol::kNone, body);
}

std::optional<std::vector<std::uint8_t>> MessageHub::Answer() {
  const std::lock_guard lock(mutex);
  return answer;
}

std::vector<PostedMessage> MessageHub::TakePosted() {
  const std::lock_guard lock(mutex);
  return std::exchange(posted, {});
}

bool MessageHub::IsCompanionAsked() {
  const std::lock_guard lock(mutex);
  return companionAsked && !companionLost;
}

void MessageHub::WaitForCompanion(Moment limit) {
  {
    const std::lock_guard lock(mutex);
    companionAsked = false;
  }
  if (AskCompanion(kFenceModule, limit)) return;
  const std::lock_guard lock(mutex);
  companionLost = true;
  throw std::runtime_error("the companion service does not answer");
}

bool MessageHub::AskCompanion(std::uint32_t asModule, Moment limit) {
  {
    const std::lock_guard lock(mutex);
    companionDone = false;
  }
  CIPCMessageClient asking(asModule, false);
  asking.RegisterMessageCallback(protocol::kLogsAvailableAnswer,
                                 [this](const tagIPC_MESSAGE_ITEM&) {
                                   const std::lock_guard lock(mutex);
                                   companionDone = true;
                                   companionAnswered.notify_all();
                                 });
  PostFrom(asking, protocol::kCompanionModule, protocol::kLogsAvailableRequest,
           protocol::kLogsAvailableAnswer, {});
  std::unique_lock lock(mutex);
  return companionAnswered.wait_until(lock, limit, [this] { return companionDone; });
}

void MessageHub::OnPost(const tagIPC_MESSAGE_ITEM& item) {
  if (IsOfHost(item.source)) return;
  const std::lock_guard lock(mutex);
  posted.push_back({item.messageId, item.replyId, BodyOf(item)});
  if (item.target == protocol::kCompanionModule) companionAsked = true;
}

void MessageHub::OnMessage(const tagIPC_MESSAGE_ITEM& item) {
  const std::lock_guard lock(mutex);
  if (!answer) answer = BodyOf(item);
}

}  // namespace manager
