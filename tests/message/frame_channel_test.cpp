#include "platform/message/frame_channel.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <optional>
#include <thread>

#include "platform/message/local_listener.h"
#include "tests/message/raw_peer.h"
#include "tests/support/temporary_folder.h"

namespace {

using message::Frame;
using message::FrameChannel;
using message::FrameKind;
using testing::ElementsAre;

constexpr std::size_t kQuarter = std::size_t{1} << 14;  // of what fits into a connection

message::SharedBytes FrameOf(std::uint32_t messageId, std::size_t bodyBytes) {
  return std::make_shared<const std::vector<std::uint8_t>>(message::EncodeFrame(
      {FrameKind::Message, 1, 2, messageId, 0, std::vector<std::uint8_t>(bodyBytes, 7)}));
}

// A channel to a raw peer. Nothing happens on the channel's side but while the context is run.
class FrameChannelTest : public testing::Test {
 protected:
  FrameChannelTest() {
    listener->AsyncAccept(
        [this](const std::error_code& error, std::unique_ptr<message::LocalStream> stream, int) {
          EXPECT_FALSE(error);
          channel = std::make_shared<FrameChannel>(std::move(stream));
        });
    peer.emplace(socket);
    context.run();
    context.restart();
    channel->Start(
        [this](const Frame& frame) {
          got.push_back(frame.messageId);
          atFrame();
          return then;
        },
        [this](const std::string& reason) { ended = reason; });
  }

  const TemporaryFolder folder;
  const std::filesystem::path socket = folder.path / "test.sock";
  asio::io_context context{message::kContextThreads};
  std::unique_ptr<message::LocalListener> listener = message::ListenLocally(context, socket);
  std::optional<RawPeer> peer;
  std::shared_ptr<FrameChannel> channel;
  std::function<void()> atFrame = [] {};
  FrameChannel::Then then = FrameChannel::Then::ReadOn;
  std::vector<std::uint32_t> got;
  std::optional<std::string> ended;
};

TEST_F(FrameChannelTest, ReadsWhatTheOtherSideLeftThoughNothingCanBeSentToItAnyMore) {
  for (std::uint32_t id : {1, 2, 3}) peer->Post(1, 2, id, std::vector<std::uint8_t>(kQuarter));
  peer.reset();
  channel->Send(FrameOf(4, 1), FrameChannel::WhenFull::End);
  context.run();
  EXPECT_THAT(got, ElementsAre(1u, 2u, 3u));
  EXPECT_EQ(ended, "");
}

TEST_F(FrameChannelTest, LeavesWhatItSentToBeReadAfterItsEnd) {
  for (std::uint32_t id : {1, 2, 3})
    channel->Send(FrameOf(id, kQuarter), FrameChannel::WhenFull::End);
  std::thread runner([this] { context.run(); });
  channel->Flush(std::chrono::steady_clock::now() + FrameChannel::kPatience);
  channel->End({});
  runner.join();
  EXPECT_EQ(ended, "");
  channel = nullptr;
  for (std::uint32_t id : {1, 2, 3}) {
    const auto frame = peer->Read();
    ASSERT_TRUE(frame) << id;
    EXPECT_EQ(frame->messageId, id);
  }
  EXPECT_FALSE(peer->Read());
}

TEST_F(FrameChannelTest, EndsAtOnceWhileTheOtherSideDoesNotRead) {
  channel->Send(FrameOf(1, message::kMaxBodyBytes), FrameChannel::WhenFull::End);
  channel->Send(FrameOf(2, 1), FrameChannel::WhenFull::End);
  context.poll();
  channel->End("enough");
  context.run();
  EXPECT_EQ(ended, "enough");
  EXPECT_FALSE(peer->Read()) << "the part of a frame and the end";
}

TEST_F(FrameChannelTest, EndsWhenItsOwnHandlerAsksForIt) {
  atFrame = [this] { channel->End("asked to"); };
  peer->Post(1, 2, 3);
  context.run();
  EXPECT_EQ(ended, "asked to");
}

TEST_F(FrameChannelTest, HandsOutOneFrameAfterAnotherWhenItRestsAfterEach) {
  then = FrameChannel::Then::Rest;
  for (std::uint32_t id : {1, 2, 3}) peer->Post(1, 2, id);
  peer.reset();
  for (std::size_t resumed = 0; resumed <= 3; ++resumed) {
    context.run();
    context.restart();
    EXPECT_EQ(got.size(), std::min<std::size_t>(resumed + 1, 3));
    EXPECT_EQ(ended.has_value(), resumed == 3);
    channel->Resume();
  }
  EXPECT_EQ(ended, "");
}

class EndedInARest : public FrameChannelTest, public testing::WithParamInterface<std::size_t> {};

TEST_P(EndedInARest, HandsOutAllThatHadCome) {
  then = FrameChannel::Then::Rest;
  for (std::uint32_t id : {1, 2, 3}) peer->Post(1, 2, id, std::vector<std::uint8_t>(GetParam()));
  context.run();
  context.restart();
  EXPECT_THAT(got, ElementsAre(1u));
  channel->End("enough");
  context.run();
  EXPECT_THAT(got, ElementsAre(1u, 2u, 3u));
  EXPECT_EQ(ended, "enough");
  channel->Resume();
}

// What it held back, and what it had not read yet.
INSTANTIATE_TEST_SUITE_P(FrameChannel, EndedInARest, testing::Values(1, kQuarter));

}  // namespace
