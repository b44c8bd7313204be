#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <vector>

#include "platform/message/message_item.h"

// What travels between processes: frames of a 32-bit length, a header and a body;
// docs/messages.md describes them.
namespace message {

/// Most bytes that a message's body may have.
inline constexpr std::uint32_t kMaxBodyBytes = 1 << 20;

/// Published numbers.
enum class FrameKind : std::uint32_t { Hello = 1, Announce = 2, Withdraw = 3, Message = 4 };

/// Stands in the target of a hello.
inline constexpr std::uint32_t kProtocolVersion = 1;

struct Frame {
  FrameKind kind = FrameKind::Message;
  std::uint32_t target = 0;
  std::uint32_t source = 0;
  std::uint32_t messageId = 0;
  std::uint32_t replyId = 0;
  std::vector<std::uint8_t> body;  // an announcement's or withdrawal's: ids of four bytes each
};

/// Bytes that are no frame, or a frame that is not allowed where it stands.
class FrameError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

std::vector<std::uint8_t> EncodeFrame(const Frame& frame);
std::vector<std::uint8_t> EncodeMessage(const tagIPC_MESSAGE_ITEM& item);
std::vector<std::uint8_t> EncodeHello();
std::vector<std::uint8_t> EncodeIds(FrameKind kind, const std::vector<std::uint32_t>& ids);

/// The ids that an announcement or withdrawal lists.
std::vector<std::uint32_t> DecodeIds(const Frame& frame);

/// The item of a message; its body is the frame's own.
tagIPC_MESSAGE_ITEM ItemOf(const Frame& frame);

/// Finds the frames in a stream of bytes that comes in chunks of any size.
class FrameReader {
 public:
  void Feed(std::span<const std::uint8_t> chunk);

  /// The next frame, when all of it has come. Throws FrameError as soon as the bytes cannot become
  /// a frame; the stream is then of no more use.
  std::optional<Frame> Next();

  /// Whether a part of a frame waits for its rest.
  bool InsideFrame() const { return position < buffer.size(); }

 private:
  std::vector<std::uint8_t> buffer;
  std::size_t position = 0;  // what lies before has been handed out
};

}  // namespace message
