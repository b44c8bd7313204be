#include "platform/message/frame_channel.h"

#include <asio/error.hpp>
#include <span>
#include <utility>

namespace message {
namespace {

constexpr std::size_t kMaxQueuedCost = std::size_t{8} << 20;

// What a waiting frame takes in memory: its bytes and what keeps them.
std::size_t CostOf(const SharedBytes& frame) {
  constexpr std::size_t kKeeping = 128;
  return frame->size() + kKeeping;
}

// Empty for the end that the other side makes by closing.
std::string ReasonOf(const std::error_code& error) {
  const bool closed = error == asio::error::eof || error == asio::error::broken_pipe ||
                      error == asio::error::operation_aborted;
  return closed ? "" : error.message();
}

}  // namespace

FrameChannel::FrameChannel(std::unique_ptr<LocalStream> connected) : stream(std::move(connected)) {}

void FrameChannel::Start(OnFrame onFrame, OnEnd onEnd) {
  frameArrived = std::move(onFrame);
  ended = std::move(onEnd);
  const std::lock_guard lock(mutex);
  Read();
}

void FrameChannel::Send(const SharedBytes& frame, WhenFull whenFull) {
  std::unique_lock lock(mutex);
  const auto hasRoom = [&] { return shut || queuedCost + CostOf(frame) <= kMaxQueuedCost; };
  if (whenFull == WhenFull::Wait) sent.wait_for(lock, kPatience, hasRoom);
  if (!hasRoom()) Shut("the other side reads too slowly");
  if (shut) return;
  queue.push_back(frame);
  queuedCost += CostOf(frame);
  if (!writing) SendWaiting();
}

void FrameChannel::Flush(std::chrono::steady_clock::time_point deadline) {
  std::unique_lock lock(mutex);
  sent.wait_until(lock, deadline, [this] { return shut || queue.empty(); });
}

void FrameChannel::End(const std::string& reason) {
  const std::lock_guard lock(mutex);
  Shut(reason);
}

void FrameChannel::SendWaiting() {
  while (!shut && !queue.empty()) {
    const SharedBytes& first = queue.front();
    const std::size_t taken = stream->TryWrite(*first);
    if (taken < first->size()) return SendRestOfFirst(taken);
    DropFirst();
  }
}

void FrameChannel::SendRestOfFirst(std::size_t from) {
  writing = true;
  const SharedBytes first = queue.front();
  stream->AsyncWrite(std::span(*first).subspan(from),
                     [self = shared_from_this(), first](const std::error_code& error) {
                       const std::lock_guard lock(self->mutex);
                       self->writing = false;
                       if (error) self->Shut({});  // the reading side learns why
                       if (self->shut) return;
                       self->DropFirst();
                       self->SendWaiting();
                       self->sent.notify_all();
                     });
}

void FrameChannel::DropFirst() {
  queuedCost -= CostOf(queue.front());
  queue.pop_front();
}

// The read under way then ends and closes the channel. After a rest there is one again.
void FrameChannel::Shut(const std::string& reason) {
  if (shut) return;
  shut = true;
  shutReason = reason;
  stream->Shutdown();
  sent.notify_all();
  if (std::exchange(resting, false)) Read();
}

void FrameChannel::Read() {
  stream->AsyncRead(chunk,
                    [self = shared_from_this()](const std::error_code& error, std::size_t bytes) {
                      self->reader.Feed(std::span(self->chunk).first(bytes));
                      self->TakeFrames(error);
                    });
}

// At the end of the stream too: it can come while the channel rests.
void FrameChannel::TakeFrames(const std::error_code& end) {
  try {
    while (const std::optional<Frame> frame = reader.Next())
      if (frameArrived(*frame) == Then::Rest && Rest()) return;
  } catch (const FrameError& error) {
    return Finish(error.what());
  }
  if (end) return Finish(reader.InsideFrame() ? "it ended inside a frame" : ReasonOf(end));
  const std::lock_guard lock(mutex);
  Read();
}

// False at the end, before which all is read that had come.
bool FrameChannel::Rest() {
  const std::lock_guard lock(mutex);
  resting = !shut;
  return resting;
}

void FrameChannel::Resume() {
  {
    const std::lock_guard lock(mutex);
    if (!std::exchange(resting, false)) return;
  }
  TakeFrames({});
}

void FrameChannel::Finish(std::string reason) {
  {
    const std::lock_guard lock(mutex);
    Shut(reason);
    reason = shutReason.empty() ? reason : shutReason;
    stream->Close();
    queue.clear();
  }
  ended(reason);
  frameArrived = nullptr;
  ended = nullptr;
}

}  // namespace message
