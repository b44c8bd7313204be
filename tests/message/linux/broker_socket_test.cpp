#include <gmock/gmock.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <asio/io_context.hpp>
#include <asio/local/datagram_protocol.hpp>
#include <asio/local/stream_protocol.hpp>
#include <string>
#include <utility>
#include <vector>

#include "common/path_text.h"
#include "platform/message/broker.h"
#include "platform/message/local_stream.h"
#include "tests/message/comes.h"
#include "tests/message/raw_peer.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::ThrowsMessage;

// What stands at a path, as far as a broker could do harm to it.
std::string Description(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(lstat(path.c_str(), &status), 0) << path << " is gone";
  std::string text = std::to_string(status.st_ino) + " " + std::to_string(status.st_mode);
  if (S_ISREG(status.st_mode)) text += " " + ReadText(path);
  return text;
}

void LeaveSocket(const fs::path& path) {
  asio::io_context context;
  asio::local::stream_protocol::acceptor(context, path.string());
}

TEST(BrokerSocket, IsForItsUserAloneAndGoesAwayWithTheBroker) {
  const TemporaryFolder folder;
  const fs::path socket = folder.path / "a.sock";
  {
    const message::Broker broker(socket);
    EXPECT_EQ(fs::status(socket).permissions(), fs::perms{0600});
  }
  EXPECT_FALSE(fs::exists(socket));
}

TEST(BrokerSocket, OfADeadBrokerIsReplaced) {
  const TemporaryFolder folder;
  const fs::path socket = folder.path / "a.sock";
  LeaveSocket(socket);
  ASSERT_TRUE(fs::exists(socket)) << "left behind";
  const message::Broker broker(socket);
  RawPeer peer(socket, {1});
}

TEST(BrokerSocket, TakesTheWayOfNothingButADeadSocketOfItsUser) {
  const TemporaryFolder folder;
  const auto path = [&](const char* name) { return folder.path / name; };
  asio::io_context context;
  WriteText(path("text"), "mine");
  fs::create_directory(path("folder"));
  fs::create_symlink(path("text"), path("link"));
  LeaveSocket(path("dead"));
  fs::create_symlink(path("dead"), path("link to a socket"));
  fs::create_symlink(path("nothing"), path("link to nothing"));
  ASSERT_EQ(mkfifo(path("fifo").c_str(), 0600), 0);
  asio::local::stream_protocol::acceptor live(context, path("live").string());
  asio::local::stream_protocol::acceptor full(context, path("full").string());
  full.listen(0);
  asio::local::stream_protocol::socket waits(context);
  waits.connect(path("full").string());
  asio::local::datagram_protocol::socket datagrams(context, path("datagrams").string());
  std::vector<std::pair<const char*, std::string>> cases = {
      {"text", "what is there is not a socket"},
      {"folder", "what is there is not a socket"},
      {"link", "what is there is not a socket"},
      {"link to a socket", "what is there is not a socket"},
      {"link to nothing", "what is there is not a socket"},
      {"fifo", "what is there is not a socket"},
      {"live", "another program listens there"},
      {"full", "another program listens there"},
      {"datagrams", "another program listens there"},
      {"text/x", "Not a directory"},
  };
  LeaveSocket(path("other user's"));
  const bool given = chown(path("other user's").c_str(), 12345, 12345) == 0;  // root alone may
  if (given) cases.emplace_back("other user's", "the socket belongs to another user");

  for (const auto& [name, reason] : cases) {
    const fs::path socket = path(name);
    const std::string before = name == std::string("text/x") ? "" : Description(socket);
    EXPECT_THAT([&] { message::Broker broker(socket); },
                ThrowsMessage<std::runtime_error>(common::PathText(socket) +
                                                  ": no broker can serve there: " + reason));
    if (!before.empty()) {
      EXPECT_EQ(Description(socket), before) << name;
    }
    EXPECT_FALSE(fs::exists(path(name) += ".lock")) << name;
  }
}

TEST(BrokerSocket, OfAnotherProgramIsNotRemovedAtTheEnd) {
  const TemporaryFolder folder;
  const fs::path socket = folder.path / "a.sock";
  auto broker = std::make_unique<message::Broker>(socket);
  fs::remove(socket);
  WriteText(socket, "mine");
  broker = nullptr;
  EXPECT_EQ(ReadText(socket), "mine");
}

TEST(BrokerSocket, IsNotLockedWithWhatIsNoFile) {
  const TemporaryFolder folder;
  ASSERT_EQ(mkfifo((folder.path / "a.sock.lock").c_str(), 0600), 0);
  EXPECT_THAT([&] { message::Broker broker(folder.path / "a.sock"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("a.sock.lock: it is not a file")));
}

// This process can open nothing more.
class NoDescriptorsLeft {
 public:
  NoDescriptorsLeft() {
    getrlimit(RLIMIT_NOFILE, &before);
    const int next = dup(STDERR_FILENO);
    close(next);
    rlimit limit = before;
    limit.rlim_cur = static_cast<rlim_t>(next);
    setrlimit(RLIMIT_NOFILE, &limit);
  }
  NoDescriptorsLeft(const NoDescriptorsLeft&) = delete;
  NoDescriptorsLeft& operator=(const NoDescriptorsLeft&) = delete;
  ~NoDescriptorsLeft() { setrlimit(RLIMIT_NOFILE, &before); }

 private:
  rlimit before{};
};

TEST(BrokerSocket, TellsOnceThatItCannotTakeConnectionsAndHowOften) {
  TestLog::Instance().Take();
  const TemporaryFolder folder;
  const message::Broker broker(folder.path / "a.sock");
  asio::io_context context;
  asio::local::stream_protocol::socket peer(context);
  peer.open();
  {
    const NoDescriptorsLeft none;
    peer.connect((folder.path / "a.sock").string());
    pollfd ends{peer.native_handle(), POLLIN, 0};
    EXPECT_EQ(poll(&ends, 1, 350), 0) << "it waits for its turn, while several tries fail";
  }
  std::string log;
  EXPECT_TRUE(IsLogged(" tries to accept a connection failed", log));
  const std::string first = "a connection could not be accepted: Too many open files";
  EXPECT_THAT(log, HasSubstr(first));
  EXPECT_EQ(log.find(first), log.rfind(first)) << log;
}

TEST(BrokerSocket, IsNotReachedForAReasonThatIsTold) {
  const TemporaryFolder folder;
  asio::io_context context;
  std::string reason;
  EXPECT_FALSE(message::ConnectLocally(context, folder.path / "a.sock", reason));
  EXPECT_EQ(reason, "No such file or directory");
  const NoDescriptorsLeft none;
  EXPECT_FALSE(message::ConnectLocally(context, folder.path / "a.sock", reason));
  EXPECT_EQ(reason, "Too many open files");
}

TEST(BrokerSocket, IsNamedWhenItCannotBeThere) {
  const TemporaryFolder folder;
  EXPECT_THAT([&] { message::Broker nowhere(folder.path / "none/a.sock"); },
              ThrowsMessage<std::runtime_error>(HasSubstr("none/a.sock")));
  EXPECT_THAT([&] { message::Broker far(folder.path / std::string(200, 'x')); },
              ThrowsMessage<std::runtime_error>(HasSubstr("too long for a socket")));
}

}  // namespace
