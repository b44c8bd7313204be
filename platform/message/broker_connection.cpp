#include "platform/message/broker_connection.h"

#include <algorithm>
#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/steady_timer.hpp>
#include <atomic>
#include <chrono>
#include <iterator>
#include <memory>
#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "common/log.h"
#include "common/path_text.h"
#include "platform/message/client_table.h"
#include "platform/message/delivery_queue.h"
#include "platform/message/frame_channel.h"
#include "platform/message/inbound.h"
#include "platform/message/local_stream.h"
#include "platform/message/uplink.h"

namespace message {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kFirstInterval(10);
constexpr std::chrono::milliseconds kLongestInterval(500);
constexpr std::chrono::seconds kLived(1);  // what ends sooner may be a broker that takes nobody

using Ids = std::set<std::uint32_t>;

std::vector<std::uint32_t> WithoutThoseIn(const Ids& ids, const Ids& excluded) {
  std::vector<std::uint32_t> rest;
  std::set_difference(ids.begin(), ids.end(), excluded.begin(), excluded.end(),
                      std::back_inserter(rest));
  return rest;
}

class Connection final : public Uplink {
 public:
  explicit Connection(const std::filesystem::path& path)
      : socket(common::PathText(path)), address(LocalAddress(path)), retry(context) {}

  bool Start() {
    std::string reason;
    const bool reached = TryConnect(reason);
    if (!reached) {
      Log("no broker is reached at " + socket + ": " + reason);
      RetryLater();
    }
    Deliveries().Serve(context);
    return reached;
  }

  void Stop() {
    if (const auto open = OpenChannel()) open->Flush(Clock::now() + FrameChannel::kPatience);
    Deliveries().StopServing();
    stopping = true;
    retry.cancel();
    work.reset();
    if (const auto open = OpenChannel()) open->End({});
    context.run();  // until nothing is left
  }

  bool IsConnected() { return OpenChannel() != nullptr; }

  void Send(const tagIPC_MESSAGE_ITEM& item) override {
    if (const auto open = OpenChannel()) SendTo(*open, EncodeMessage(item));
  }

  void IdsChanged() override {
    const std::lock_guard lock(mutex);
    if (channel) AnnounceChanges();
  }

 private:
  static void SendTo(FrameChannel& to, std::vector<std::uint8_t> frame) {
    to.Send(std::make_shared<const std::vector<std::uint8_t>>(std::move(frame)),
            FrameChannel::WhenFull::Wait);
  }

  std::shared_ptr<FrameChannel> OpenChannel() {
    const std::lock_guard lock(mutex);
    return channel;
  }

  // The ids are read under the lock, so that the last change made is the last one announced.
  void AnnounceChanges() {
    Ids now = Clients().Ids();
    const auto gone = WithoutThoseIn(announced, now);
    const auto come = WithoutThoseIn(now, announced);
    if (!gone.empty()) SendTo(*channel, EncodeIds(FrameKind::Withdraw, gone));
    if (!come.empty()) SendTo(*channel, EncodeIds(FrameKind::Announce, come));
    announced = std::move(now);
  }

  bool TryConnect(std::string& whyNot) {
    std::unique_ptr<LocalStream> stream = ConnectLocally(context, address, whyNot);
    if (!stream) return false;
    const auto connected = std::make_shared<FrameChannel>(std::move(stream));
    {
      const std::lock_guard lock(mutex);
      channel = connected;
      announced.clear();
      SendTo(*channel, EncodeHello());
      AnnounceChanges();
    }
    connectedAt = Clock::now();
    FrameChannel* const key = connected.get();  // the callbacks belong to the channel
    connected->Start(
        [key](const Frame& frame) {
          if (frame.kind != FrameKind::Message) throw FrameError("the broker sends no message");
          return TakeIn(frame, *key);
        },
        [this](const std::string& reason) { OnEnd(reason); });
    return true;
  }

  void OnEnd(const std::string& reason) {
    {
      const std::lock_guard lock(mutex);
      channel = nullptr;
    }
    if (stopping) return;
    Log("the broker at " + socket + " is lost" + (reason.empty() ? "" : ": " + reason));
    if (Clock::now() - connectedAt > kLived) interval = kFirstInterval;
    RetryLater();
  }

  void RetryLater() {
    retry.expires_after(interval);
    interval = std::min(2 * interval, kLongestInterval);
    retry.async_wait([this](const asio::error_code&) {
      if (stopping) return;
      std::string ignored;
      if (TryConnect(ignored))
        Log("the broker at " + socket + " is reached");
      else
        RetryLater();
    });
  }

  static void Log(const std::string& text) {
    COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.message"), text);
  }

  const std::string socket;
  const std::filesystem::path address;
  asio::io_context context{kContextThreads};
  asio::executor_work_guard<asio::io_context::executor_type> work{context.get_executor()};

  // Of whoever runs the context; before that, and after, of Start and Stop.
  asio::steady_timer retry;
  std::chrono::milliseconds interval = kFirstInterval;
  Clock::time_point connectedAt;
  bool stopping = false;

  std::mutex mutex;
  std::shared_ptr<FrameChannel> channel;  // null while there is no connection
  Ids announced;
};

struct Holder {
  std::mutex mutex;
  std::shared_ptr<Connection> connection;
};

Holder& TheHolder() {
  static auto& holder = *new Holder;
  return holder;
}

}  // namespace

bool ConnectToBroker(const std::filesystem::path& socket) {
  const auto connection = std::make_shared<Connection>(socket);
  SetUplink(connection);
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  holder.connection = connection;
  return connection->Start();
}

void DisconnectFromBroker() {
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  if (!holder.connection) return;
  ClearUplink();
  holder.connection->Stop();
  holder.connection = nullptr;
}

bool IsConnectedToBroker() {
  Holder& holder = TheHolder();
  const std::lock_guard lock(holder.mutex);
  return holder.connection != nullptr && holder.connection->IsConnected();
}

}  // namespace message
