#include <gmock/gmock.h>

#include <asio/io_context.hpp>
#include <asio/local/stream_protocol.hpp>
#include <string>

#include "platform/message/broker.h"
#include "tests/message/raw_peer.h"
#include "tests/support/temporary_folder.h"

namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

TEST(BrokerSocket, IsForItsUserAloneAndGoesAwayWithTheBroker) {
  const TemporaryFolder folder;
  const std::filesystem::path socket = folder.path / "a.sock";
  {
    const message::Broker broker(socket);
    EXPECT_EQ(std::filesystem::status(socket).permissions(), std::filesystem::perms{0600});
  }
  EXPECT_FALSE(std::filesystem::exists(socket));
}

TEST(BrokerSocket, OfADeadBrokerIsReplaced) {
  const TemporaryFolder folder;
  const std::filesystem::path socket = folder.path / "a.sock";
  {
    asio::io_context context;
    asio::local::stream_protocol::acceptor(context, socket.string());
  }
  ASSERT_TRUE(std::filesystem::exists(socket)) << "left behind";
  const message::Broker broker(socket);
  RawPeer peer(socket, {1});
}

TEST(BrokerSocket, IsNamedWhenItCannotBeThere) {
  const TemporaryFolder folder;
  EXPECT_THAT([&] { message::Broker nowhere(folder.path / "none/a.sock"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("none/a.sock")));
  EXPECT_THAT([&] { message::Broker far(folder.path / std::string(200, 'x')); },
              ThrowsMessage<std::runtime_error>(HasSubstr("too long for a socket")));
}

}  // namespace
