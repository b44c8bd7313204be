#include "platform/message/ipc_message_client.h"

#include <gmock/gmock.h>

#include <atomic>
#include <map>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/test_log.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::uint32_t kManager = 0x390000;
constexpr std::uint32_t kPlugin = 0x3A0000;
constexpr std::uint32_t kGroup = 0x4000;

bool Post(CIPCMessageClient& from, std::uint32_t target, std::uint32_t messageId,
          const std::vector<std::uint8_t>& body = {}) {
  tagIPC_MESSAGE_ITEM item;
  item.target = target;
  item.messageId = messageId;
  item.data = body.data();
  item.dataLength = static_cast<std::uint32_t>(body.size());
  return from.PostIPCMessage(item);
}

// Notes what a client gets as "<mark><message id>".
auto Note(std::vector<std::string>& notes, const std::string& mark) {
  return [&notes, mark](const tagIPC_MESSAGE_ITEM& item) {
    notes.push_back(mark + std::to_string(item.messageId));
  };
}

TEST(MessageClient, GetsWhatIsForItsModuleOrItsGroupsButNotItsOwnPosts) {
  std::vector<std::string> notes;
  CIPCMessageClient manager(kManager, false);
  CIPCMessageClient plugin(kPlugin, false);
  manager.RegisterMessageCallbackAll(Note(notes, "manager "));
  plugin.RegisterMessageCallback(2, Note(notes, "plugin "));
  plugin.RegisterMessageCallbackAll(Note(notes, "plugin all "));
  for (CIPCMessageClient* client : {&manager, &plugin})
    EXPECT_TRUE(client->SubscribeIPCMessage(kGroup, 0));

  EXPECT_TRUE(Post(manager, kPlugin, 1));
  EXPECT_TRUE(Post(manager, kGroup, 2));
  EXPECT_TRUE(Post(manager, kManager, 3));
  EXPECT_TRUE(Post(manager, 0x77, 4));
  message::WaitUntilDelivered();
  EXPECT_THAT(notes, ElementsAre("plugin all 1", "plugin all 2", "plugin 2"));

  notes.clear();
  EXPECT_TRUE(plugin.UnSubscribeIPCMessage(kGroup, 0));
  EXPECT_FALSE(plugin.UnSubscribeIPCMessage(kGroup, 0));
  plugin.UnRegisterMessageCallbackAll();
  Post(manager, kGroup, 2);
  Post(manager, kPlugin, 1);
  Post(manager, kPlugin, 2);
  Post(plugin, kGroup, 5);
  message::WaitUntilDelivered();
  EXPECT_THAT(notes, ElementsAre("plugin 2", "manager 5"));
}

TEST(MessageClient, PostsACopyOfTheBodyInItsOwnName) {
  CIPCMessageClient manager(kManager, false);
  CIPCMessageClient plugin(kPlugin, false);
  std::vector<std::uint32_t> sources;
  std::vector<std::vector<std::uint8_t>> bodies;
  plugin.RegisterMessageCallbackAll([&](const tagIPC_MESSAGE_ITEM& item) {
    sources.push_back(item.source);
    bodies.emplace_back(item.data, item.data + item.dataLength);
  });

  std::vector<std::uint8_t> body(1 << 20, 7);
  EXPECT_TRUE(Post(manager, kPlugin, 1, body));
  body[0] = 8;
  body.push_back(9);
  EXPECT_FALSE(Post(manager, kPlugin, 1, body)) << "a byte too many";
  tagIPC_MESSAGE_ITEM item;
  item.target = kPlugin;
  item.source = 0x42;
  EXPECT_TRUE(manager.PostIPCMessage(item));
  item.dataLength = 1;
  EXPECT_FALSE(manager.PostIPCMessage(item)) << "a length without a body";

  message::WaitUntilDelivered();
  EXPECT_THAT(sources, ElementsAre(kManager, 0x42u));
  ASSERT_EQ(bodies.size(), 2u);
  EXPECT_EQ(bodies[0], std::vector<std::uint8_t>(1 << 20, 7));
  EXPECT_TRUE(bodies[1].empty());
}

TEST(MessageClient, DeliversOnAfterAHandlerThrew) {
  TestLog::Instance().Take();
  CIPCMessageClient manager(kManager, false);
  CIPCMessageClient plugin(kPlugin, false);
  std::vector<std::string> notes;
  plugin.RegisterMessageCallback(
      0xAB, [](const tagIPC_MESSAGE_ITEM&) { throw std::runtime_error("no such page"); });
  plugin.RegisterMessageCallback(2, [](const tagIPC_MESSAGE_ITEM&) { throw 5; });
  plugin.RegisterMessageCallback(3, Note(notes, ""));
  for (const std::uint32_t id : {0xABu, 2u, 3u}) Post(manager, kPlugin, id);
  message::WaitUntilDelivered();
  EXPECT_THAT(notes, ElementsAre("3"));
  const std::string log = TestLog::Instance().Take();
  EXPECT_THAT(log, HasSubstr("the handler of message 0xAB threw: no such page"));
  EXPECT_THAT(log, HasSubstr("the handler of message 0x2 threw"));
}

// Uses its client when it is destroyed, as an object of a handler may.
struct UsesClientAtItsEnd {
  explicit UsesClientAtItsEnd(CIPCMessageClient& used) : client(used) {}
  UsesClientAtItsEnd(const UsesClientAtItsEnd&) = default;
  ~UsesClientAtItsEnd() { client.UnSubscribeIPCMessage(kGroup, 0); }
  void operator()(const tagIPC_MESSAGE_ITEM&) const {}
  CIPCMessageClient& client;
};

TEST(MessageClient, MayBeUsedAndDestroyedInsideItsHandlers) {
  CIPCMessageClient manager(kManager, false);
  auto plugin = std::make_unique<CIPCMessageClient>(kPlugin, false);
  std::vector<std::string> notes;
  plugin->RegisterMessageCallback(1, [&](const tagIPC_MESSAGE_ITEM&) {
    message::WaitUntilDelivered();
    plugin->UnRegisterMessageCallback(1);
    plugin->RegisterMessageCallback(2, Note(notes, "new "));
    Post(*plugin, kManager, 9);
  });
  plugin->RegisterMessageCallback(2, Note(notes, "old "));
  plugin->RegisterMessageCallback(3, [&](const tagIPC_MESSAGE_ITEM&) { plugin.reset(); });
  plugin->RegisterMessageCallback(4, UsesClientAtItsEnd(*plugin));
  plugin->UnRegisterMessageCallback(4);
  plugin->RegisterMessageCallback(4, UsesClientAtItsEnd(manager));
  manager.RegisterMessageCallbackAll(Note(notes, "manager "));
  for (const std::uint32_t id : {1u, 1u, 2u, 3u, 2u, 4u}) Post(manager, kPlugin, id);
  message::WaitUntilDelivered();  // the posts above
  message::WaitUntilDelivered();  // and what they posted
  EXPECT_EQ(plugin, nullptr);
  EXPECT_THAT(notes, testing::UnorderedElementsAre("new 2", "manager 9"));
}

TEST(MessageClient, KeepsEachSendersOrderWhileOthersComeAndGo) {
  constexpr std::uint32_t kSenders = 4;
  constexpr std::uint32_t kMessages = 500;
  CIPCMessageClient receiver(kManager, false);
  receiver.SubscribeIPCMessage(kGroup, 0);
  std::map<std::uint32_t, std::uint32_t> next;
  bool inOrder = true;
  receiver.RegisterMessageCallbackAll([&](const tagIPC_MESSAGE_ITEM& item) {
    inOrder = inOrder && item.messageId == next[item.source]++;
  });

  std::vector<std::thread> threads;
  for (std::uint32_t sender = 1; sender <= kSenders; ++sender)
    threads.emplace_back([sender] {
      CIPCMessageClient client(sender, false);
      for (std::uint32_t id = 0; id < kMessages; ++id) Post(client, kGroup, id);
    });
  std::atomic<bool> done = false;
  std::thread visitor([&] {
    while (!done) {
      CIPCMessageClient client(0x77, false);
      auto count = std::make_shared<std::atomic<int>>();
      client.SubscribeIPCMessage(kGroup, 0);
      client.RegisterMessageCallbackAll([count](const tagIPC_MESSAGE_ITEM&) { ++*count; });
      client.UnSubscribeIPCMessage(kGroup, 0);
    }
  });
  for (std::thread& thread : threads) thread.join();
  message::WaitUntilDelivered();
  done = true;
  visitor.join();
  EXPECT_TRUE(inOrder);
  ASSERT_EQ(next.size(), kSenders);
  for (const auto& [sender, count] : next) EXPECT_EQ(count, kMessages) << "from " << sender;
}

}  // namespace
