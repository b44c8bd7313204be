#pragma once

#include <cstddef>
#include <cstdint>

/// One message of the messaging library. The layout is fixed; docs/messages.md describes it.
struct tagIPC_MESSAGE_ITEM {
  std::uint32_t target = 0;           // module or group id
  std::uint32_t source = 0xFFFFFFFF;  // filled in by the client that posts
  std::uint32_t messageId = 0;
  std::uint32_t replyId = 0xFFFFFFFF;  // message id expected as answer; 0 or -1 when none
  std::uint32_t reserved1 = 0xFFFFFFFF;
  std::uint32_t reserved2 = 0;
  std::uint32_t dataLength = 0;  // bytes
  std::uint32_t padding = 0;
  const std::uint8_t* data = nullptr;  // the sender's until the post returns
  std::uint64_t reserved3 = 0;
};

static_assert(sizeof(tagIPC_MESSAGE_ITEM) == 48 && offsetof(tagIPC_MESSAGE_ITEM, data) == 32);
