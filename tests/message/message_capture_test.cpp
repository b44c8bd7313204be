#include "platform/message/message_capture.h"

#include <gtest/gtest.h>

#include "platform/message/ipc_message_client.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(MessageCapture, ShowsEveryPostAsItsSenderHandedItOver) {
  const TemporaryFolder folder;
  EXPECT_THROW(message::StartCapture(folder.path), std::runtime_error) << "a folder";
  const std::filesystem::path file = folder.path / "messages.jsonl";
  message::StartCapture(file);

  CIPCMessageClient client(0x3A0001, false);
  const std::uint8_t body[] = {0x00, 0x0f, 0xa0, 0xff};
  tagIPC_MESSAGE_ITEM item;
  item.target = 0x390000;
  item.messageId = 0x3B0001;
  item.replyId = 0x3C0001;
  item.data = body;
  item.dataLength = sizeof body;
  EXPECT_TRUE(client.PostIPCMessage(item));
  tagIPC_MESSAGE_ITEM bare;
  bare.source = 0xab;
  EXPECT_TRUE(client.PostIPCMessage(bare));

  EXPECT_EQ(ReadText(file),
            R"({"target":"0x390000","source":"0xFFFFFFFF","message":"0x3B0001",)"
            R"("reply":"0x3C0001","body":"000fa0ff"})"
            "\n"
            R"({"target":"0x0","source":"0xAB","message":"0x0","reply":"0xFFFFFFFF","body":""})"
            "\n");
}

}  // namespace
