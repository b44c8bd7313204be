#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/message/frame.h"
#include "platform/message/local_stream.h"

namespace message {

using SharedBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

/// One connection that frames go through, both ways.
///
/// What the system does not take at once waits in a bounded queue. Reading, and writing what has
/// waited, is done by whoever runs the stream's context; the two callbacks come from there.
class FrameChannel : public std::enable_shared_from_this<FrameChannel> {
 public:
  /// May throw FrameError, which ends the channel.
  using OnFrame = std::function<void(const Frame&)>;
  /// Called once, last. The reason is empty when the other side closed between two frames or this
  /// side ended the channel without one.
  using OnEnd = std::function<void(const std::string& reason)>;

  enum class WhenFull {
    End,  // the other side reads too slowly: ends the channel
    Wait  // waits up to a second for room, then ends the channel; not while running the context
  };

  explicit FrameChannel(std::unique_ptr<LocalStream> connected);

  void Start(OnFrame onFrame, OnEnd onEnd);

  /// Any thread. Frames of one thread keep their order. After the end nothing is sent.
  void Send(const SharedBytes& frame, WhenFull whenFull);

  /// Waits up to a second until nothing waits to be sent. Not while running the context.
  void Flush();

  /// Any thread. Only the first reason counts.
  void End(const std::string& reason);

 private:
  bool Full(std::size_t bytes) const;
  void SendWaiting();
  void SendRestOfFirst(std::size_t from);
  void DropFirst();
  void Shut(const std::string& reason);
  void Read();
  void TakeFrames(std::size_t bytes);
  void Finish(std::string reason);

  OnFrame frameArrived;
  OnEnd ended;
  FrameReader reader;
  std::array<std::uint8_t, 16384> chunk;

  std::mutex mutex;  // guards what follows; the stream is used under it
  const std::unique_ptr<LocalStream> stream;
  std::condition_variable sent;
  std::deque<SharedBytes> queue;  // the first one may have gone in part
  std::size_t queuedBytes = 0;
  bool writing = false;  // the stream is busy with the first one
  bool shut = false;
  std::string shutReason;
};

}  // namespace message
