#include "cli/log_talk.h"

#include <stdexcept>

#include "cli/texts.h"
#include "common/protocol/message_ids.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds kLook(50);
constexpr int kLooksPerQuestion = 4;

}  // namespace

LogTalk::LogTalk() {
  interruptible.Cancels([this] { interrupted = true; });
  IPCHelper::Instance().SetLogsAvailableSlot([this](std::uint8_t answer) {
    const std::lock_guard lock(mutex);
    available = answer != 0;
    answered.notify_all();
  });
  IPCHelper::Instance().SetLogListSlot([this](const Items& come) {
    const std::lock_guard lock(mutex);
    if (!items) items.emplace();
    items->insert(items->end(), come.begin(), come.end());
    available.reset();  // what came before answered questions from before
  });
}

LogTalk::~LogTalk() {
  IPCHelper::Instance().SetLogsAvailableSlot(nullptr);
  IPCHelper::Instance().SetLogListSlot(nullptr);
}

// Asks again and again: the service may only be starting.
std::optional<bool> LogTalk::AskWhetherThereAreLogs(std::chrono::milliseconds limit) {
  for (auto left = limit; left.count() > 0 && !IsOver(); left -= kLooksPerQuestion * kLook) {
    Post(protocol::kLogsAvailableRequest, protocol::kLogsAvailableAnswer, false);
    Wait(kLooksPerQuestion * kLook, [this] { return available.has_value(); });
    const std::lock_guard lock(mutex);
    if (available) break;
  }
  const std::lock_guard lock(mutex);
  return available;
}

LogTalk::Items LogTalk::AskForList(std::chrono::milliseconds limit) {
  PostAndAskWhenDone(protocol::kLogListRequest, protocol::kLogListAnswer, false);
  Wait(limit, [this] { return items && available; });
  const std::lock_guard lock(mutex);
  if (!Interrupted() && !(items && available)) throw Silence();
  return items.value_or(Items());
}

void LogTalk::AskToPack() {
  PostAndAskWhenDone(protocol::kPackRequest, 0, true);
}

void LogTalk::AskToDiscard() {
  PostAndAskWhenDone(protocol::kDiscardRequest, 0, true);
  Wait(1s, [this] { return available.has_value(); });
}

bool LogTalk::IsDone() {
  const std::lock_guard lock(mutex);
  return available.has_value();
}

bool LogTalk::HasServiceEnded() {
  return watched != nullptr && watched->EndsWithin(0ms);
}

std::runtime_error LogTalk::Silence() {
  return std::runtime_error(Message(HasServiceEnded() ? L"SERVICE_LOST" : L"SERVICE_SILENT"));
}

void LogTalk::Post(std::uint32_t messageId, std::uint32_t replyId, bool withByte) {
  constexpr std::uint8_t kByte = 0;
  tagIPC_MESSAGE_ITEM item;
  item.target = protocol::kCompanionModule;
  item.messageId = messageId;
  item.replyId = replyId;
  item.dataLength = withByte ? 1 : 0;
  item.data = withByte ? &kByte : nullptr;
  IPCHelper::Instance().Client().PostIPCMessage(item);
}

// The service does one thing after the other: it answers the question when the rest is done.
void LogTalk::PostAndAskWhenDone(std::uint32_t messageId, std::uint32_t replyId, bool withByte) {
  {
    const std::lock_guard lock(mutex);
    available.reset();
  }
  Post(messageId, replyId, withByte);
  Post(protocol::kLogsAvailableRequest, protocol::kLogsAvailableAnswer, false);
}

template <typename Condition>
void LogTalk::Wait(std::chrono::milliseconds limit, Condition holds) {
  std::unique_lock lock(mutex);
  for (auto left = limit; left.count() > 0 && !IsOver(); left -= kLook)
    if (answered.wait_for(lock, kLook, holds)) return;
}

}  // namespace cli
