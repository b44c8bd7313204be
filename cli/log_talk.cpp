#include "cli/log_talk.h"

#include <algorithm>

#include "common/protocol/message_ids.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace cli {

using namespace orv::sysdiagnose;

namespace {

constexpr std::chrono::milliseconds kLook(50);
constexpr int kLooksPerQuestion = 4;

bool HasApplicationLog(const LogTalk::Items& items) {
  return std::any_of(items.begin(), items.end(), [](const auto& item) {
    return item.module == static_cast<std::int32_t>(protocol::LogModule::Application);
  });
}

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
    items.insert(items.end(), come.begin(), come.end());
    answered.notify_all();
  });
}

LogTalk::~LogTalk() {
  IPCHelper::Instance().SetLogsAvailableSlot(nullptr);
  IPCHelper::Instance().SetLogListSlot(nullptr);
}

// Asks again and again: the service may only be starting.
std::optional<bool> LogTalk::AskWhetherThereAreLogs(std::chrono::milliseconds limit) {
  for (auto left = limit; left.count() > 0 && !Interrupted(); left -= kLooksPerQuestion * kLook) {
    Post(protocol::kLogsAvailableRequest, protocol::kLogsAvailableAnswer, false);
    Wait(kLooksPerQuestion * kLook, [this] { return available.has_value(); });
    const std::lock_guard lock(mutex);
    if (available) break;
  }
  const std::lock_guard lock(mutex);
  return available;
}

LogTalk::Items LogTalk::AskForList(std::chrono::milliseconds limit) {
  Post(protocol::kLogListRequest, protocol::kLogListAnswer, false);
  Wait(limit, [this] { return HasApplicationLog(items); });
  const std::lock_guard lock(mutex);
  return items;
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

template <typename Condition>
void LogTalk::Wait(std::chrono::milliseconds limit, Condition holds) {
  std::unique_lock lock(mutex);
  for (auto left = limit; left.count() > 0 && !Interrupted(); left -= kLook)
    if (answered.wait_for(lock, kLook, holds)) return;
}

}  // namespace cli
