#include "platform/message/frame.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using Bytes = std::vector<std::uint8_t>;
using testing::HasSubstr;
using testing::ThrowsMessage;

Bytes Concatenated(std::initializer_list<Bytes> parts) {
  Bytes whole;
  for (const Bytes& part : parts) whole.insert(whole.end(), part.begin(), part.end());
  return whole;
}

TEST(Frame, OfAMessageHasTheseBytes) {
  const Bytes body = {7, 8, 9};
  tagIPC_MESSAGE_ITEM item;
  item.target = 0x3B0000;
  item.source = 0x390000;
  item.messageId = 0x3B0002;
  item.replyId = 0x3C0002;
  item.dataLength = 3;
  item.data = body.data();
  EXPECT_EQ(message::EncodeMessage(item),
            (Bytes{23,   0, 0, 0, 4,    0, 0, 0, 0,    0, 0x3B, 0, 0, 0,
                   0x39, 0, 2, 0, 0x3B, 0, 2, 0, 0x3C, 0, 7,    8, 9}));
}

// However the stream is cut, the same frames come out.
TEST(Frame, IsFoundInChunksOfAnySize) {
  tagIPC_MESSAGE_ITEM item;
  const Bytes body(300, 5);
  item.dataLength = 300;
  item.data = body.data();
  const Bytes stream = Concatenated(
      {message::EncodeHello(), message::EncodeIds(message::FrameKind::Announce, {1, 0xFFFFFFFF}),
       message::EncodeMessage(item), message::EncodeIds(message::FrameKind::Withdraw, {1})});
  for (const std::size_t size : {std::size_t{1}, std::size_t{3}, std::size_t{100}, stream.size()}) {
    message::FrameReader reader;
    Bytes again;
    std::vector<std::uint32_t> ids;
    for (std::size_t at = 0; at < stream.size(); at += size) {
      reader.Feed(std::span(stream).subspan(at, std::min(size, stream.size() - at)));
      while (const auto frame = reader.Next()) {
        const Bytes encoded = message::EncodeFrame(*frame);
        again.insert(again.end(), encoded.begin(), encoded.end());
        if (frame->kind == message::FrameKind::Announce) ids = message::DecodeIds(*frame);
      }
    }
    EXPECT_EQ(again, stream) << "in chunks of " << size;
    EXPECT_THAT(ids, testing::ElementsAre(1u, 0xFFFFFFFFu));
    EXPECT_FALSE(reader.InsideFrame());
  }
}

TEST(Frame, ThatCannotBeOneIsRefusedAsSoonAsItShows) {
  const struct {
    Bytes bytes;
    const char* reason;
  } kCases[] = {
      {{19, 0, 0, 0}, "a frame of 19 bytes"},
      {{0x15, 0, 0x10, 0}, "a frame of 1048597 bytes"},
      {{0xFF, 0xFF, 0xFF, 0xFF}, "a frame of 4294967295 bytes"},
      {{20, 0, 0, 0, 0, 0, 0, 0}, "kind 0"},
      {{20, 0, 0, 0, 4, 0, 0, 1}, "kind 16777220"},
      {{21, 0, 0, 0, 1, 0, 0, 0}, "kind 1 with a body of 1 bytes"},
      {{22, 0, 0, 0, 2, 0, 0, 0}, "kind 2 with a body of 2 bytes"},
  };
  for (const auto& [bytes, reason] : kCases) {
    message::FrameReader reader;
    reader.Feed(bytes);
    EXPECT_THAT([&] { reader.Next(); }, ThrowsMessage<message::FrameError>(HasSubstr(reason)));
  }
  message::FrameReader largest;
  largest.Feed(Bytes{0x14, 0, 0x10, 0, 4, 0, 0, 0});
  EXPECT_FALSE(largest.Next()) << "a whole megabyte may come";
}

}  // namespace
