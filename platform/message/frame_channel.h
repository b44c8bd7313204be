#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include "platform/message/frame.h"
#include "platform/message/local_stream.h"

namespace message {

using SharedBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

/// One connection that frames go through, both ways.
///
/// What the system does not take at once waits in a queue of at most 8 MiB. Reading, and writing
/// what has waited, is done by whoever runs the stream's context; the two callbacks come from
/// there.
class FrameChannel : public std::enable_shared_from_this<FrameChannel> {
 public:
  enum class Then {
    ReadOn,
    Rest  // hands out nothing more until Resume
  };
  /// May throw FrameError, which ends the channel.
  using OnFrame = std::function<Then(const Frame&)>;
  /// Called once, last. The reason is empty when the other side closed between two frames or this
  /// side ended the channel without one.
  using OnEnd = std::function<void(const std::string& reason)>;

  enum class WhenFull {
    End,  // the other side reads too slowly: ends the channel
    Wait  // waits for room, as long as patience lasts, then ends the channel; not while running
          // the context
  };

  /// How long this side waits for one that does not read.
  static constexpr std::chrono::seconds kPatience{1};

  explicit FrameChannel(std::unique_ptr<LocalStream> connected);

  void Start(OnFrame onFrame, OnEnd onEnd);

  /// Any thread. Frames of one thread keep their order. After the end nothing is sent.
  void Send(const SharedBytes& frame, WhenFull whenFull);

  /// Reads on after a rest. As whoever runs the context.
  void Resume();

  /// Waits until nothing waits to be sent, but not beyond the deadline. Not while running the
  /// context.
  void Flush(std::chrono::steady_clock::time_point deadline);

  /// Any thread. Only the first reason counts.
  void End(const std::string& reason);

 private:
  void SendWaiting();
  void SendRestOfFirst(std::size_t from);
  void DropFirst();
  void Shut(const std::string& reason);
  void Read();
  void TakeFrames(const std::error_code& end);
  bool Rest();
  void Finish(std::string reason);

  OnFrame frameArrived;
  OnEnd ended;
  FrameReader reader;
  std::array<std::uint8_t, 16384> chunk;

  std::mutex mutex;  // guards what follows; the stream is used under it
  const std::unique_ptr<LocalStream> stream;
  std::condition_variable sent;
  std::deque<SharedBytes> queue;  // the first one may have gone in part
  std::size_t queuedCost = 0;     // bytes of memory
  bool writing = false;           // the stream is busy with the first one
  bool resting = false;           // no read is under way
  bool shut = false;
  std::string shutReason;
};

}  // namespace message
