#include "platform/message/frame_channel.h"

#include <asio/buffer.hpp>
#include <chrono>
#include <span>
#include <utility>

namespace message {
namespace {

constexpr std::size_t kMaxQueuedFrames = 256;
constexpr std::size_t kMaxQueuedBytes = std::size_t{8} << 20;
constexpr std::chrono::seconds kPatience(1);

}  // namespace

FrameChannel::FrameChannel(LocalSocket connected) : socket(std::move(connected)) {
  socket.non_blocking(true);
}

void FrameChannel::Start(OnFrame onFrame, OnEnd onEnd) {
  frameArrived = std::move(onFrame);
  ended = std::move(onEnd);
  Read();
}

void FrameChannel::Send(const SharedBytes& frame, WhenFull whenFull) {
  std::unique_lock lock(mutex);
  const auto hasRoom = [&] { return shut || !Full(frame->size()); };
  if (whenFull == WhenFull::Wait) sent.wait_for(lock, kPatience, hasRoom);
  if (!hasRoom()) Shut("the other side reads too slowly");
  if (shut) return;
  queue.push_back(frame);
  queuedBytes += frame->size();
  if (!waitingToSend) SendNow();
}

void FrameChannel::Flush() {
  std::unique_lock lock(mutex);
  sent.wait_for(lock, kPatience, [this] { return shut || queue.empty(); });
}

void FrameChannel::End(const std::string& reason) {
  const std::lock_guard lock(mutex);
  Shut(reason);
}

bool FrameChannel::Full(std::size_t bytes) const {
  return queue.size() >= kMaxQueuedFrames || queuedBytes + bytes > kMaxQueuedBytes;
}

void FrameChannel::SendNow() {
  while (!shut && !queue.empty()) {
    const std::vector<std::uint8_t>& front = *queue.front();
    asio::error_code error;
    frontSent +=
        socket.write_some(asio::buffer(front.data() + frontSent, front.size() - frontSent), error);
    if (error == asio::error::would_block) return SendWhenPossible();
    if (error) return Shut({});  // the reading side learns why
    if (frontSent < front.size()) continue;
    queuedBytes -= front.size();
    frontSent = 0;
    queue.pop_front();
  }
}

void FrameChannel::SendWhenPossible() {
  waitingToSend = true;
  socket.async_wait(LocalSocket::wait_write, [self = shared_from_this()](const auto&) {
    const std::lock_guard lock(self->mutex);
    self->waitingToSend = false;
    self->SendNow();
    self->sent.notify_all();
  });
}

// The read under way then ends and closes the channel.
void FrameChannel::Shut(const std::string& reason) {
  if (shut) return;
  shut = true;
  shutReason = reason;
  asio::error_code ignored;
  socket.shutdown(LocalSocket::shutdown_both, ignored);
  sent.notify_all();
}

void FrameChannel::Read() {
  const std::lock_guard lock(mutex);
  socket.async_read_some(
      asio::buffer(chunk),
      [self = shared_from_this()](const asio::error_code& error, std::size_t bytes) {
        if (error)
          self->Finish(self->reader.InsideFrame() ? "it ended inside a frame" : "");
        else
          self->TakeFrames(bytes);
      });
}

void FrameChannel::TakeFrames(std::size_t bytes) {
  try {
    reader.Feed(std::span(chunk).first(bytes));
    while (const std::optional<Frame> frame = reader.Next()) frameArrived(*frame);
  } catch (const FrameError& error) {
    return Finish(error.what());
  }
  Read();
}

void FrameChannel::Finish(std::string reason) {
  {
    const std::lock_guard lock(mutex);
    Shut(reason);
    reason = shutReason.empty() ? reason : shutReason;
    asio::error_code ignored;
    socket.close(ignored);
    queue.clear();
  }
  ended(reason);
  frameArrived = nullptr;
  ended = nullptr;
}

}  // namespace message
