#include "sysdiagnose/records/requests.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "common/protocol/message_ids.h"
#include "sysdiagnose/records/ipc_helper.h"

namespace orv::sysdiagnose {
namespace {

struct RequestRow {
  std::uint32_t target;
  std::uint32_t messageId;
  std::uint32_t replyId;  // 0 where no answer comes
  bool hasByte;           // a body of one byte, 0
};

// By request.
constexpr auto kRequests = std::to_array<RequestRow>({
    {protocol::kCompanionModule, protocol::kLogsAvailableRequest, protocol::kLogsAvailableAnswer,
     false},
    {protocol::kCompanionModule, protocol::kLogListRequest, protocol::kLogListAnswer, false},
    {protocol::kCompanionModule, protocol::kPackRequest, 0, true},
    {protocol::kCompanionModule, protocol::kDiscardRequest, 0, true},
    {protocol::kManagerModule, protocol::kRestartRequest, 0, false},
});
static_assert(kRequests.size() == static_cast<std::size_t>(Request::Count));

}  // namespace

void PostRequest(Request request) {
  const RequestRow& row = kRequests.at(static_cast<std::size_t>(request));
  const std::uint8_t body = 0;
  tagIPC_MESSAGE_ITEM item;
  item.target = row.target;
  item.messageId = row.messageId;
  item.replyId = row.replyId;
  if (row.hasByte) {
    item.dataLength = sizeof body;
    item.data = &body;
  }
  IPCHelper::Instance().Client().PostIPCMessage(item);
}

}  // namespace orv::sysdiagnose
