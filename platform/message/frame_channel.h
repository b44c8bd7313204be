#pragma once

#include <array>
#include <asio/local/stream_protocol.hpp>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/message/frame.h"

namespace message {

using LocalSocket = asio::local::stream_protocol::socket;
using SharedBytes = std::shared_ptr<const std::vector<std::uint8_t>>;

/// One connected socket that frames go through, both ways.
///
/// What does not fit into the socket waits in a bounded queue. Reading, and writing what has
/// waited, is done by whoever runs the socket's context; the two callbacks come from there.
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

  explicit FrameChannel(LocalSocket connected);

  void Start(OnFrame onFrame, OnEnd onEnd);

  /// Any thread. Frames of one thread keep their order. After the end nothing is sent.
  void Send(const SharedBytes& frame, WhenFull whenFull);

  /// Waits up to a second until nothing waits to be sent. Not while running the context.
  void Flush();

  /// Any thread. Only the first reason counts.
  void End(const std::string& reason);

 private:
  bool Full(std::size_t bytes) const;
  void SendNow();
  void SendWhenPossible();
  void Shut(const std::string& reason);
  void Read();
  void TakeFrames(std::size_t bytes);
  void Finish(std::string reason);

  OnFrame frameArrived;
  OnEnd ended;
  FrameReader reader;
  std::array<std::uint8_t, 16384> chunk;

  std::mutex mutex;  // guards what follows; the socket's own operations all start under it
  LocalSocket socket;
  std::condition_variable sent;
  std::deque<SharedBytes> queue;
  std::size_t frontSent = 0;    // bytes of the first frame that are gone
  std::size_t queuedBytes = 0;  // of all frames in the queue, the first one whole
  bool waitingToSend = false;
  bool shut = false;
  std::string shutReason;
};

}  // namespace message
