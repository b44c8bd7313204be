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
#include "platform/message/inbound.h"
#include "platform/message/local_listener.h"
#include "platform/message/uplink.h"

namespace message {
namespace {

using Channel = std::shared_ptr<FrameChannel>;
using Then = FrameChannel::Then;

constexpr std::size_t kMaxIdsOfPeer = 4096;
constexpr std::chrono::milliseconds kPauseAfterFailedAccept(100);
constexpr std::chrono::seconds kCalm(1);

}  // namespace

class Broker::Core final : public Uplink {
 public:
  explicit Core(const std::filesystem::path& socket)
      : listener(ListenLocally(context, socket)), pause(context) {}

  void Start() {
    for (int place = 0; place < listener->Places(); ++place) Accept();
    Deliveries().Serve(context);
  }

  void Stop() {
    const auto deadline = std::chrono::steady_clock::now() + FrameChannel::kPatience;
    for (const Channel& channel : Channels()) channel->Flush(deadline);
    Deliveries().StopServing();
    stopping = true;
    pause.cancel();
    listener->Close();
    for (const Channel& channel : Channels()) channel->End({});
    context.run();  // until nothing is left
    listener = nullptr;
    TellFailedAccepts();
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

  // The next one can come before this one is served.
  void Accept() {
    listener->AsyncAccept(
        [this](const std::error_code& error, std::unique_ptr<LocalStream> stream, int process) {
          if (stopping) return;
          if (error) return AcceptLater(error);
          Accept();
          if (stream)
            Serve(std::make_shared<FrameChannel>(std::move(stream)), process);
          else
            COMMON_LOG_WARN(Logger(), "a connection of another user was refused");
        });
  }

  // One line when it begins, one with the count when it is over: the cause may last.
  void AcceptLater(const std::error_code& error) {
    if (++failedAccepts == 1)
      COMMON_LOG_ERROR(Logger(), "a connection could not be accepted: " + error.message());
    if (++freePlaces > 1) return;
    pause.expires_after(kPauseAfterFailedAccept);
    pause.async_wait([this](const asio::error_code&) { AcceptAgain(); });
  }

  void AcceptAgain() {
    if (stopping) return;
    for (int left = std::exchange(freePlaces, 0); left > 0; --left) Accept();
    pause.expires_after(kCalm);
    pause.async_wait([this](const asio::error_code& error) {
      if (!error) TellFailedAccepts();
    });
  }

  void TellFailedAccepts() {
    if (failedAccepts > 1)
      COMMON_LOG_ERROR(Logger(),
                       std::to_string(failedAccepts) + " tries to accept a connection failed");
    failedAccepts = 0;
  }

  void Serve(const Channel& channel, int process) {
    {
      const std::lock_guard guard(mutex);
      peers[channel].process = process;
    }
    FrameChannel* const key = channel.get();  // the callbacks belong to the channel
    channel->Start(
        [this, key](const Frame& frame) { return OnFrame(key->shared_from_this(), frame); },
        [this, key](const std::string& reason) { OnEnd(key->shared_from_this(), reason); });
  }

  Then OnFrame(const Channel& channel, const Frame& frame) {
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
    return Then::ReadOn;
  }

  Then Relay(const Channel& from, const Frame& frame) {
    std::vector<Channel> recipients = RecipientsOf(frame.target);
    std::erase(recipients, from);
    if (!recipients.empty()) {
      const auto bytes = std::make_shared<const std::vector<std::uint8_t>>(EncodeFrame(frame));
      for (const Channel& channel : recipients) channel->Send(bytes, FrameChannel::WhenFull::End);
    }
    return TakeIn(frame, *from);
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

  asio::io_context context{kContextThreads};

  // Of whoever runs the context; before that, and after, of Start and Stop.
  std::unique_ptr<LocalListener> listener;
  asio::steady_timer pause;
  int freePlaces = 0;  // where nobody waits for a connection
  int failedAccepts = 0;
  bool stopping = false;

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
