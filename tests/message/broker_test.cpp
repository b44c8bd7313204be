#include "platform/message/broker.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <deque>
#include <future>
#include <map>
#include <memory>
#include <mutex>
#include <numeric>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "common/path_text.h"
#include "platform/message/broker_connection.h"
#include "platform/message/frame_channel.h"
#include "platform/message/ipc_message_client.h"
#include "platform/message/local_listener.h"
#include "platform/os/child_process.h"
#include "tests/message/comes.h"
#include "tests/message/raw_peer.h"
#include "tests/support/temporary_folder.h"

namespace {

using message::Frame;
using message::FrameKind;
using testing::HasSubstr;
using namespace std::chrono_literals;

constexpr std::uint32_t kOwn = 0x390000;
constexpr std::uint32_t kOther = 0x3A0000;
constexpr std::uint32_t kGroup = 0x4000;

// Waits until the count has not changed for a while.
std::uint32_t WhereItStops(const std::atomic<std::uint32_t>& count) {
  std::uint32_t last = count;
  for (auto since = std::chrono::steady_clock::now();
       std::chrono::steady_clock::now() - since < 300ms; std::this_thread::sleep_for(1ms))
    if (last != count) {
      last = count;
      since = std::chrono::steady_clock::now();
    }
  return last;
}

// A client of this process and the ids of the messages that it got.
class Listener {
 public:
  explicit Listener(std::uint32_t module) : client(module, false) {
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      const std::lock_guard lock(mutex);
      got[item.source].push_back(item.messageId);
    });
  }

  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  // A handler that runs at this moment uses what goes away with this.
  ~Listener() {
    client.UnRegisterMessageCallbackAll();
    message::WaitUntilDelivered();
  }

  std::vector<std::uint32_t> From(std::uint32_t source) {
    const std::lock_guard lock(mutex);
    return got[source];
  }

  void Post(std::uint32_t target, std::uint32_t messageId,
            const std::vector<std::uint8_t>& body = {}) {
    tagIPC_MESSAGE_ITEM item;
    item.target = target;
    item.messageId = messageId;
    item.data = body.data();
    item.dataLength = static_cast<std::uint32_t>(body.size());
    EXPECT_TRUE(client.PostIPCMessage(item));
  }

  // Asks again until the other process answers.
  bool IsAnsweredBy(std::uint32_t module) {
    const auto before = From(module).size();
    for (int i = 0; i < 2000; ++i) {
      Post(module, 1);
      for (int wait = 0; wait < 10; ++wait) {
        if (From(module).size() > before) return true;
        std::this_thread::sleep_for(1ms);
      }
    }
    return false;
  }

  CIPCMessageClient client;

 private:
  std::mutex mutex;
  std::map<std::uint32_t, std::vector<std::uint32_t>> got;
};

class BrokerTest : public testing::Test {
 protected:
  // Returns when everything written before by this peer has had its effect.
  void Settle(RawPeer& peer, Listener& listener) {
    const auto before = listener.From(0x99).size();
    peer.Post(kOwn, 0x99, 0);
    EXPECT_TRUE(Comes([&] { return listener.From(0x99).size() > before; }));
  }

  std::unique_ptr<os::ChildProcess> StartEcho() {
    return Start({PEER_PROGRAM, "echo", common::PathText(socket), std::to_string(kOther)});
  }
  std::unique_ptr<os::ChildProcess> Start(const std::vector<std::string>& arguments) {
    return std::make_unique<os::ChildProcess>(arguments);
  }

  const TemporaryFolder folder;
  const std::filesystem::path socket = folder.path / "test.sock";
};

TEST_F(BrokerTest, RelaysToThoseWhoAnnouncedTheTargetAndNeverBack) {
  message::Broker broker(socket);
  Listener listener(kOwn);
  listener.client.SubscribeIPCMessage(kGroup, 0);
  RawPeer first(socket, {1, kGroup});
  RawPeer second(socket, {2, kGroup});
  Settle(first, listener);
  Settle(second, listener);

  first.Post(2, 1, 10);
  first.Post(1, 1, 11);
  first.Post(kGroup, 1, 12);
  Settle(first, listener);
  second.Write(message::EncodeIds(FrameKind::Withdraw, {kGroup}));
  Settle(second, listener);
  listener.Post(kGroup, 13);
  listener.Post(2, 14, {1, 2});

  EXPECT_EQ(first.Read()->messageId, 13u) << "not its own posts";
  EXPECT_EQ(second.Read()->messageId, 10u);
  EXPECT_EQ(second.Read()->messageId, 12u);
  const Frame last = *second.Read();
  EXPECT_EQ(last.messageId, 14u) << "no longer in the group";
  EXPECT_EQ(last.source, kOwn);
  EXPECT_EQ(last.body, (std::vector<std::uint8_t>{1, 2}));
  EXPECT_THAT(listener.From(1), testing::ElementsAre(12u));
}

TEST_F(BrokerTest, EndsOnlyTheConnectionWhoseBytesAreWrong) {
  TestLog::Instance().Take();
  message::Broker broker(socket);
  Listener listener(kOwn);
  RawPeer good(socket, {1});
  const auto hello = message::EncodeHello();
  const auto bodied = message::EncodeFrame({FrameKind::Message, kOwn, 1, 1, 0, {1, 2, 3, 4}});
  const auto newer = message::EncodeFrame({FrameKind::Hello, 2, 0, 0, 0, {}});
  std::vector<std::uint32_t> tooMany(5000);
  std::iota(tooMany.begin(), tooMany.end(), 1);
  const struct {
    bool greets;
    std::vector<std::uint8_t> bytes;
    const char* reason;
  } kCases[] = {
      {true, {1, 0, 0, 0}, "a frame of 1 bytes"},
      {true, {0xFF, 0xFF, 0xFF, 0xFF}, "a frame of 4294967295 bytes"},
      {true, {20, 0, 0, 0, 9, 0, 0, 0}, "a frame of kind 9"},
      {true, hello, "a second hello"},
      {true, message::EncodeIds(FrameKind::Announce, tooMany), "too many ids announced"},
      {false, bodied, "a message before the hello"},
      {false, message::EncodeIds(FrameKind::Announce, {1}), "no hello at the beginning"},
      {false, newer, "version 2 of the protocol"},
  };
  for (const auto& [greets, bytes, reason] : kCases) {
    RawPeer bad(socket);
    if (greets) bad.Write(hello);
    bad.Write(bytes);
    EXPECT_FALSE(bad.Read()) << reason;
    EXPECT_TRUE(IsLogged(reason)) << reason;
    Settle(good, listener);
  }
  { RawPeer(socket).Write({bodied.begin(), bodied.end() - 1}); }
  EXPECT_TRUE(IsLogged("it ended inside a frame"));
  EXPECT_TRUE(listener.From(1).empty()) << "no message came of it";
  Settle(good, listener);
}

TEST_F(BrokerTest, DropsOnlyTheOneWhoDoesNotRead) {
  TestLog::Instance().Take();
  message::Broker broker(socket);
  Listener listener(kOwn);
  RawPeer slow(socket, {1, kGroup});
  RawPeer good(socket, {2, kGroup});
  Settle(slow, listener);
  Settle(good, listener);

  std::uint32_t sent = 0;
  while (sent < 2000 && TestLog::Instance().Take().find("reads too slowly") == std::string::npos) {
    listener.Post(kGroup, sent++, std::vector<std::uint8_t>(16384));
    EXPECT_EQ(good.Read()->messageId, sent - 1);
  }
  EXPECT_LT(sent, 2000u);
  for (std::uint32_t i = 0; i < 7; ++i)
    listener.Post(2, i, std::vector<std::uint8_t>(message::kMaxBodyBytes, 1));
  for (std::uint32_t i = 0; i < 7; ++i) {
    const auto large = good.Read();
    ASSERT_TRUE(large) << "seven megabytes may wait";
    EXPECT_EQ(large->body.size(), message::kMaxBodyBytes);
  }
  std::uint32_t received = 0;
  while (slow.Read()) ++received;
  EXPECT_LT(received, sent);
}

TEST_F(BrokerTest, KeepsAReaderThatIsBehindABurstOfSmallMessages) {
  constexpr std::uint32_t kBurst = 20000;
  message::Broker broker(socket);
  Listener listener(kOwn);
  RawPeer behind(socket, {1});
  Settle(behind, listener);
  for (std::uint32_t i = 0; i < kBurst; ++i) listener.Post(1, i);
  for (std::uint32_t i = 0; i < kBurst; ++i) {
    const auto frame = behind.Read();
    ASSERT_TRUE(frame) << "dropped after " << i;
    ASSERT_EQ(frame->messageId, i);
  }
}

TEST_F(BrokerTest, EndsInASecondHoweverManyDoNotRead) {
  auto broker = std::make_unique<message::Broker>(socket);
  Listener listener(kOwn);
  std::deque<RawPeer> stuck;
  for (int i = 0; i < 5; ++i) {
    stuck.emplace_back(socket, std::vector<std::uint32_t>{kGroup});
    Settle(stuck.back(), listener);
  }
  listener.Post(kGroup, 1, std::vector<std::uint8_t>(message::kMaxBodyBytes));
  const auto begun = std::chrono::steady_clock::now();
  broker = nullptr;
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 3s);
}

TEST_F(BrokerTest, ServesAHundredProcessesAndKeepsTheOrderOfEach) {
  constexpr std::uint32_t kPeers = 100;
  constexpr std::uint32_t kMessages = 50;
  message::Broker broker(socket);
  Listener listener(kOwn);
  std::deque<RawPeer> peers;
  for (std::uint32_t i = 0; i < kPeers; ++i) {
    peers.emplace_back(socket, std::vector<std::uint32_t>{1000 + i, kGroup});
    Settle(peers.back(), listener);
  }
  for (std::uint32_t id = 0; id < kMessages; ++id) {
    for (std::uint32_t i = 0; i < kPeers; ++i) peers[i].Post(kOwn, 1000 + i, id);
    for (std::uint32_t i = 0; i < kPeers; ++i) peers[i].Post(1000 + (i + 1) % kPeers, i, id);
    listener.Post(kGroup, id);
  }
  std::vector<std::uint32_t> inOrder;
  for (std::uint32_t id = 0; id < kMessages; ++id) inOrder.push_back(id);
  for (std::uint32_t i = 0; i < kPeers; ++i) {
    EXPECT_TRUE(Comes([&] { return listener.From(1000 + i).size() == kMessages; }));
    EXPECT_EQ(listener.From(1000 + i), inOrder);
    std::map<std::uint32_t, std::vector<std::uint32_t>> got;
    for (std::uint32_t n = 0; n < 2 * kMessages; ++n) {
      const Frame frame = *peers[i].Read();
      got[frame.source].push_back(frame.messageId);
    }
    EXPECT_EQ(got[kOwn], inOrder);
    EXPECT_EQ(got[(i + kPeers - 1) % kPeers], inOrder);
  }
}

TEST_F(BrokerTest, RelaysWhileAHandlerOfItsOwnProcessTakesItsTime) {
  message::Broker broker(socket);
  Listener listener(kOwn);
  RawPeer first(socket, {1});
  RawPeer second(socket, {2});
  Settle(second, listener);
  std::promise<void> entered;
  std::promise<void> left;
  CIPCMessageClient busy(kOther, false);
  busy.RegisterMessageCallbackAll([&](const tagIPC_MESSAGE_ITEM&) {
    entered.set_value();
    left.get_future().wait();
  });
  first.Post(kOther, 1, 5);
  entered.get_future().wait();
  first.Post(2, 1, 6);
  EXPECT_EQ(second.Read()->messageId, 6u);
  listener.Post(2, 7);
  EXPECT_EQ(second.Read()->messageId, 7u);
  left.set_value();
  Settle(first, listener);
}

// A client of this process whose first message keeps it busy until it is told to go on.
class BusyClient {
 public:
  BusyClient() : client(kOther, false) {
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      if (item.messageId == 0) goOn.get_future().wait();
      got += item.messageId == got ? 1 : 0;  // in order
    });
  }
  BusyClient(const BusyClient&) = delete;
  BusyClient& operator=(const BusyClient&) = delete;
  ~BusyClient() {
    client.UnRegisterMessageCallbackAll();
    message::WaitUntilDelivered();
  }

  std::promise<void> goOn;
  std::atomic<std::uint32_t> got = 0;

 private:
  CIPCMessageClient client;
};

// Writes to the busy client until the connection ends.
std::thread Flood(RawPeer& peer, std::uint32_t messages, std::atomic<std::uint32_t>& written) {
  return std::thread([&peer, messages, &written] {
    try {
      const std::vector<std::uint8_t> body(message::kMaxBodyBytes);
      for (std::uint32_t id = 0; id < messages; ++id, ++written) peer.Post(kOther, 1, id, body);
    } catch (const std::system_error&) {
    }
  });
}

TEST_F(BrokerTest, LetsASenderWaitWhileAHandlerIsBusyAndThenTakesEverything) {
  constexpr std::uint32_t kMessages = 40;
  message::Broker broker(socket);
  Listener listener(kOwn);
  RawPeer flooding(socket, {1});
  RawPeer first(socket, {2});
  RawPeer second(socket, {3});
  Settle(second, listener);
  BusyClient busy;
  std::atomic<std::uint32_t> written = 0;
  std::thread writer = Flood(flooding, kMessages, written);
  EXPECT_LE(WhereItStops(written), 12u) << "eight megabytes and what is under way";
  first.Post(3, 2, 5);
  EXPECT_EQ(second.Read()->messageId, 5u) << "others are served meanwhile";
  busy.goOn.set_value();
  writer.join();
  EXPECT_TRUE(Comes([&] { return busy.got == kMessages; })) << busy.got;
}

TEST_F(BrokerTest, EndsWhileASenderWaits) {
  auto broker = std::make_unique<message::Broker>(socket);
  RawPeer flooding(socket, {1});
  BusyClient busy;
  std::atomic<std::uint32_t> written = 0;
  std::thread writer = Flood(flooding, 40, written);
  EXPECT_LT(WhereItStops(written), 40u);
  broker = nullptr;
  writer.join();
  busy.goOn.set_value();
}

TEST_F(BrokerTest, TakesThePlaceOfADeadBrokerButNotOfALivingOne) {
  const auto other = Start({PEER_PROGRAM, "broker", common::PathText(socket)});
  EXPECT_TRUE(Comes([&] {
    try {
      RawPeer peer(socket);
      return true;
    } catch (const std::system_error&) {
      return false;
    }
  }));
  EXPECT_THAT([&] { message::Broker second(socket); },
              testing::ThrowsMessage<message::BrokerRuns>(common::PathText(socket) +
                                                          ": another broker serves there"));
  other->Kill();
  const message::Broker next(socket);
  RawPeer peer(socket, {1});
  EXPECT_THROW(message::ConnectToBroker(socket), std::logic_error) << "it is the broker itself";
}

TEST_F(BrokerTest, GetsAllThatAProcessPostedBeforeItsEnd) {
  message::Broker broker(socket);
  Listener listener(kOwn);
  const auto burst =
      Start({PEER_PROGRAM, "burst", common::PathText(socket), std::to_string(kOther)});
  EXPECT_TRUE(burst->EndsWithin(20s));
  EXPECT_TRUE(Comes([&] { return listener.From(kOther).size() == 300; }));
  std::vector<std::uint32_t> inOrder(300);
  std::iota(inOrder.begin(), inOrder.end(), 0);
  EXPECT_EQ(listener.From(kOther), inOrder);
}

TEST_F(BrokerTest, IsReachedAgainByItsClientsAfterARestart) {
  TestLog::Instance().Take();
  Listener listener(kOwn);
  auto broker = std::make_unique<message::Broker>(socket);
  const auto echo = StartEcho();
  EXPECT_TRUE(listener.IsAnsweredBy(kOther));
  broker = nullptr;
  listener.Post(kOther, 2);
  broker = std::make_unique<message::Broker>(socket);
  EXPECT_TRUE(listener.IsAnsweredBy(kOther));
  EXPECT_THAT(listener.From(kOther), testing::Each(1u)) << "what was posted meanwhile is dropped";
}

TEST_F(BrokerTest, StaysWhenAClientIsKilled) {
  message::Broker broker(socket);
  Listener listener(kOwn);
  listener.client.SubscribeIPCMessage(0x5000, 0);
  std::minstd_rand random(1);
  for (int i = 0; i < 100; ++i) {
    const auto echo = StartEcho();
    const bool answered = i % 4 != 0 || listener.IsAnsweredBy(kOther);
    EXPECT_TRUE(answered);
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
    echo->Kill();
  }
  const auto echo = StartEcho();
  EXPECT_TRUE(listener.IsAnsweredBy(kOther));
}

TEST_F(BrokerTest, IsReachedAgainByAClientWhenItWasKilled) {
  TestLog::Instance().Take();
  EXPECT_FALSE(message::ConnectToBroker(socket));
  {
    Listener listener(kOwn);
    std::minstd_rand random(2);
    for (int i = 0; i < 24; ++i) {
      const auto broker = Start({PEER_PROGRAM, "broker", common::PathText(socket)});
      const bool answered = i % 4 != 0 || listener.IsAnsweredBy(1);
      EXPECT_TRUE(answered);
      std::this_thread::sleep_for(std::chrono::microseconds(random() % 20000));
      listener.Post(1, 2);
      broker->Kill();
    }
    const auto broker = Start({PEER_PROGRAM, "broker", common::PathText(socket)});
    EXPECT_TRUE(listener.IsAnsweredBy(1));
    EXPECT_TRUE(message::IsConnectedToBroker());
    Listener later(0x77);
    EXPECT_TRUE(later.IsAnsweredBy(1)) << "a client made while connected is announced";
  }
  message::DisconnectFromBroker();
  EXPECT_FALSE(message::IsConnectedToBroker());
  const std::string log = TestLog::Instance().Take();
  EXPECT_THAT(log, HasSubstr("test.sock is lost"));
  EXPECT_THAT(log, HasSubstr("test.sock is reached"));
}

// Takes every connection, sends a message and closes.
class FickleBroker {
 public:
  explicit FickleBroker(const std::filesystem::path& socket)
      : listener(message::ListenLocally(context, socket)) {
    Accept();
  }

  void ServeUntilTaken(int connections) {
    while (taken < connections) context.run_one();
  }

 private:
  void Accept() {
    listener->AsyncAccept(
        [this](const std::error_code& error, std::unique_ptr<message::LocalStream> stream, int) {
          ASSERT_FALSE(error);
          ++taken;
          Accept();
          const auto channel = std::make_shared<message::FrameChannel>(std::move(stream));
          channel->Start([](const Frame&) { return message::FrameChannel::Then::ReadOn; },
                         [](const std::string&) {});
          channel->Send(std::make_shared<const std::vector<std::uint8_t>>(
                            message::EncodeFrame({FrameKind::Message, kOwn, 1, 1, 0, {}})),
                        message::FrameChannel::WhenFull::End);
          channel->End({});
        });
  }

  asio::io_context context{message::kContextThreads};
  std::unique_ptr<message::LocalListener> listener;
  int taken = 0;
};

TEST_F(BrokerTest, IsNotOverrunByClientsThatItDoesNotKeep) {
  Listener listener(kOwn);
  FickleBroker fickle(socket);
  const auto begun = std::chrono::steady_clock::now();
  message::ConnectToBroker(socket);
  fickle.ServeUntilTaken(7);
  EXPECT_GT(std::chrono::steady_clock::now() - begun, 600ms) << "10 + 20 + ... + 320";
  message::DisconnectFromBroker();
}

}  // namespace
