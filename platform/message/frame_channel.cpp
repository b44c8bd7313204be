#include "platform/message/frame_channel.h"

#include <chrono>
#include <span>
#include <utility>

namespace message {
namespace {

constexpr std::size_t kMaxQueuedFrames = 256;
constexpr std::size_t kMaxQueuedBytes = std::size_t{8} << 20;
constexpr std::chrono::seconds kPatience(1);

}  // namespace

FrameChannel::FrameChannel(std::unique_ptr<LocalStream> connected) : stream(std::move(connected)) {}

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
  if (!writing) SendWaiting();
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
  queuedBytes -= queue.front()->size();
  queue.pop_front();
}

// The read under way then ends and closes the channel.
void FrameChannel::Shut(const std::string& reason) {
  if (shut) return;
  shut = true;
  shutReason = reason;
  stream->Shutdown();
  sent.notify_all();
}

void FrameChannel::Read() {
  const std::lock_guard lock(mutex);
  stream->AsyncRead(chunk,
                    [self = shared_from_this()](const std::error_code& error, std::size_t bytes) {
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
    stream->Close();
    queue.clear();
  }
  ended(reason);
  frameArrived = nullptr;
  ended = nullptr;
}

}  // namespace message
