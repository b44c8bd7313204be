#include "platform/message/frame.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>

namespace message {
namespace {

static_assert(std::endian::native == std::endian::little);

constexpr std::size_t kWord = sizeof(std::uint32_t);
constexpr std::size_t kHeaderBytes = 5 * kWord;

std::uint32_t WordAt(const std::uint8_t* bytes, std::size_t index) {
  std::uint32_t word = 0;
  std::memcpy(&word, bytes + kWord * index, kWord);
  return word;
}

std::vector<std::uint8_t> Encode(const Frame& header, const std::uint8_t* body, std::size_t n) {
  const std::uint32_t words[] = {static_cast<std::uint32_t>(kHeaderBytes + n),
                                 static_cast<std::uint32_t>(header.kind),
                                 header.target,
                                 header.source,
                                 header.messageId,
                                 header.replyId};
  std::vector<std::uint8_t> bytes(sizeof words + n);
  std::memcpy(bytes.data(), words, sizeof words);
  if (n > 0) std::memcpy(bytes.data() + sizeof words, body, n);
  return bytes;
}

void CheckLength(std::uint32_t length) {
  if (length < kHeaderBytes || length > kHeaderBytes + kMaxBodyBytes)
    throw FrameError("a frame of " + std::to_string(length) + " bytes");
}

void CheckKind(std::uint32_t kind, std::size_t bodyBytes) {
  switch (static_cast<FrameKind>(kind)) {
    case FrameKind::Message:
      return;
    case FrameKind::Hello:
      if (bodyBytes == 0) return;
      break;
    case FrameKind::Announce:
    case FrameKind::Withdraw:
      if (bodyBytes % kWord == 0) return;
      break;
  }
  throw FrameError("a frame of kind " + std::to_string(kind) + " with a body of " +
                   std::to_string(bodyBytes) + " bytes");
}

}  // namespace

std::vector<std::uint8_t> EncodeFrame(const Frame& frame) {
  return Encode(frame, frame.body.data(), frame.body.size());
}

std::vector<std::uint8_t> EncodeMessage(const tagIPC_MESSAGE_ITEM& item) {
  return Encode({FrameKind::Message, item.target, item.source, item.messageId, item.replyId, {}},
                item.data, item.dataLength);
}

std::vector<std::uint8_t> EncodeHello() {
  return Encode({FrameKind::Hello, kProtocolVersion, 0, 0, 0, {}}, nullptr, 0);
}

std::vector<std::uint8_t> EncodeIds(FrameKind kind, const std::vector<std::uint32_t>& ids) {
  return Encode({kind, 0, 0, 0, 0, {}}, reinterpret_cast<const std::uint8_t*>(ids.data()),
                kWord * ids.size());
}

std::vector<std::uint32_t> DecodeIds(const Frame& frame) {
  std::vector<std::uint32_t> ids(frame.body.size() / kWord);
  for (std::size_t i = 0; i < ids.size(); ++i) ids[i] = WordAt(frame.body.data(), i);
  return ids;
}

tagIPC_MESSAGE_ITEM ItemOf(const Frame& frame) {
  tagIPC_MESSAGE_ITEM item;
  item.target = frame.target;
  item.source = frame.source;
  item.messageId = frame.messageId;
  item.replyId = frame.replyId;
  item.dataLength = static_cast<std::uint32_t>(frame.body.size());
  item.data = frame.body.empty() ? nullptr : frame.body.data();
  return item;
}

void FrameReader::Feed(std::span<const std::uint8_t> chunk) {
  buffer.erase(buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(position));
  position = 0;
  buffer.insert(buffer.end(), chunk.begin(), chunk.end());
}

std::optional<Frame> FrameReader::Next() {
  const std::uint8_t* bytes = buffer.data() + position;
  const std::size_t available = buffer.size() - position;
  if (available < kWord) return std::nullopt;
  const std::uint32_t length = WordAt(bytes, 0);
  CheckLength(length);
  const std::size_t bodyBytes = length - kHeaderBytes;
  if (available >= 2 * kWord) CheckKind(WordAt(bytes, 1), bodyBytes);
  if (available < kWord + length) return std::nullopt;

  const std::uint8_t* body = bytes + kWord + kHeaderBytes;
  position += kWord + length;
  return Frame{static_cast<FrameKind>(WordAt(bytes, 1)),
               WordAt(bytes, 2),
               WordAt(bytes, 3),
               WordAt(bytes, 4),
               WordAt(bytes, 5),
               {body, body + bodyBytes}};
}

}  // namespace message
