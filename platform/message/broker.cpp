#include "platform/message/broker.h"

#include <algorithm>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <chrono>
#include <map>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "common/log.h"
#include "platform/message/delivery_queue.h"
#include "platform/message/frame_channel.h"
#include "platform/message/local_endpoint.h"
#include "platform/message/uplink.h"
#include "platform/os/local_socket.h"

namespace message {
namespace {

using Protocol = asio::local::stream_protocol;
using Channel = std::shared_ptr<FrameChannel>;

constexpr std::size_t kMaxIdsOfPeer = 4096;
constexpr std::chrono::milliseconds kPauseAfterFailedAccept(100);

os::FileLock TakeLock(const std::filesystem::path& socket) {
  std::filesystem::path file = socket;
  auto lock = os::FileLock::TryTake(file += ".lock");
  if (!lock) throw BrokerRuns(os::PathText(socket) + ": another broker serves there");
  return std::move(*lock);
}

// Who may connect is settled before the socket listens.
Protocol::acceptor Listen(asio::io_context& context, const std::filesystem::path& socket) {
  std::error_code error;
  std::filesystem::remove(socket, error);
  Protocol::acceptor acceptor(context);
  acceptor.open();
  acceptor.bind(EndpointOf(socket), error);
  if (!error && !os::MakePrivate(socket)) error = std::make_error_code(std::errc::io_error);
  if (!error) acceptor.listen(Protocol::acceptor::max_listen_connections, error);
  if (error)
    throw std::runtime_error(os::PathText(socket) +
                             ": no broker can serve there: " + error.message());
  return acceptor;
}

}  // namespace

class Broker::Core final : public Uplink {
 public:
  explicit Core(const std::filesystem::path& path)
      : socket(path), lock(TakeLock(path)), acceptor(Listen(context, path)), pause(context) {}

  void Start() {
    Accept();
    Deliveries().Serve(context);
  }

  void Stop() {
    for (const Channel& channel : Channels()) channel->Flush();
    Deliveries().StopServing();
    stopping = true;
    pause.cancel();
    std::error_code ignored;
    acceptor.close(ignored);
    for (const Channel& channel : Channels()) channel->End({});
    context.run();  // until nothing is left
    std::filesystem::remove(socket, ignored);
  }

  void Send(const tagIPC_MESSAGE_ITEM& item) override {
    const std::vector<Channel> recipients = RecipientsOf(item.target);
    if (recipients.empty()) return;
    const auto bytes = std::make_shared<const std::vector<std::uint8_t>>(EncodeMessage(item));
    for (const Channel& channel : recipients) channel->Send(bytes, FrameChannel::WhenFull::End);
  }

  void IdsChanged() override {}  // its own clients are looked up when a message comes

 private:
  struct Peer {
    int process = 0;
    bool greeted = false;
    std::set<std::uint32_t> ids;
  };

  void Accept() {
    acceptor.async_accept([this](const asio::error_code& error, LocalSocket accepted) {
      if (stopping) return;
      if (error) return AcceptLater(error);
      if (const auto process = os::ProcessOfOwnPeer(accepted.native_handle()))
        Serve(std::make_shared<FrameChannel>(std::move(accepted)), *process);
      else
        COMMON_LOG_WARN(Logger(), "a connection of another user was refused");
      Accept();
    });
  }

  void AcceptLater(const asio::error_code& error) {
    COMMON_LOG_ERROR(Logger(), "a connection could not be accepted: " + error.message());
    pause.expires_after(kPauseAfterFailedAccept);
    pause.async_wait([this](const asio::error_code&) {
      if (!stopping) Accept();
    });
  }

  void Serve(const Channel& channel, int process) {
    {
      const std::lock_guard guard(mutex);
      peers[channel].process = process;
    }
    FrameChannel* const key = channel.get();  // the callbacks belong to the channel
    channel->Start(
        [this, key](const Frame& frame) { OnFrame(key->shared_from_this(), frame); },
        [this, key](const std::string& reason) { OnEnd(key->shared_from_this(), reason); });
  }

  void OnFrame(const Channel& channel, const Frame& frame) {
    if (frame.kind == FrameKind::Message) {
      if (!Greeted(channel)) throw FrameError("a message before the hello");
      return Relay(channel, frame);
    }
    const std::lock_guard guard(mutex);
    Peer& peer = peers.at(channel);
    if (peer.greeted == (frame.kind == FrameKind::Hello))
      throw FrameError(peer.greeted ? "a second hello" : "no hello at the beginning");
    if (frame.kind == FrameKind::Hello && frame.target != kProtocolVersion)
      throw FrameError("version " + std::to_string(frame.target) + " of the protocol");
    peer.greeted = true;
    for (const std::uint32_t id : DecodeIds(frame)) {
      if (frame.kind == FrameKind::Announce)
        peer.ids.insert(id);
      else
        peer.ids.erase(id);
    }
    if (peer.ids.size() > kMaxIdsOfPeer) throw FrameError("too many ids announced");
  }

  void Relay(const Channel& from, const Frame& frame) {
    std::vector<Channel> recipients = RecipientsOf(frame.target);
    std::erase(recipients, from);
    if (!recipients.empty()) {
      const auto bytes = std::make_shared<const std::vector<std::uint8_t>>(EncodeFrame(frame));
      for (const Channel& channel : recipients) channel->Send(bytes, FrameChannel::WhenFull::End);
    }
    Deliveries().PostReceived(ItemOf(frame));
  }

  void OnEnd(const Channel& channel, const std::string& reason) {
    const std::lock_guard guard(mutex);
    if (!reason.empty())
      COMMON_LOG_WARN(Logger(), "the connection of process " +
                                    std::to_string(peers.at(channel).process) +
                                    " was ended: " + reason);
    peers.erase(channel);
  }

  bool Greeted(const Channel& channel) {
    const std::lock_guard guard(mutex);
    return peers.at(channel).greeted;
  }

  std::vector<Channel> RecipientsOf(std::uint32_t target) {
    std::vector<Channel> recipients;
    const std::lock_guard guard(mutex);
    for (const auto& [channel, peer] : peers)
      if (peer.ids.contains(target)) recipients.push_back(channel);
    return recipients;
  }

  std::vector<Channel> Channels() {
    std::vector<Channel> channels;
    const std::lock_guard guard(mutex);
    for (const auto& [channel, peer] : peers) channels.push_back(channel);
    return channels;
  }

  static log4cxx::LoggerPtr Logger() { return log4cxx::Logger::getLogger("orv.message"); }

  const std::filesystem::path socket;
  const os::FileLock lock;
  asio::io_context context{1};
  Protocol::acceptor acceptor;
  asio::steady_timer pause;
  bool stopping = false;  // of whoever runs the context

  std::mutex mutex;
  std::map<Channel, Peer> peers;
};

Broker::Broker(const std::filesystem::path& socket) : core(std::make_shared<Core>(socket)) {
  SetUplink(core);
  core->Start();
}

Broker::~Broker() {
  ClearUplink();
  core->Stop();
}

}  // namespace message
