#include "common/protocol/ipc_data_io.h"

#include <gmock/gmock.h>

#include "common/protocol/ipc_serialize.h"
#include "common/protocol/log_item.h"
#include "common/protocol/summary.h"

namespace protocol {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes Written(const CIPCDataIO& io) {
  return {io.Data(), io.Data() + io.Position()};
}

template <typename Value>
Bytes Encode(const Value& value) {
  CIPCDataIO io;
  Write(io, value);
  return Written(io);
}

template <typename Value>
Value Decode(const Bytes& body) {
  CIPCDataIO io(body.data(), static_cast<std::uint32_t>(body.size()));
  Value value;
  Read(io, value);
  return value;
}

// What reading throws, or an empty text.
template <typename Value>
std::string FaultOf(const Bytes& body) {
  try {
    Decode<Value>(body);
    return {};
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

TEST(IpcBody, CapacityGrowsByWholeSteps) {
  CIPCDataIO io;
  io.Reserve(64);
  EXPECT_EQ(io.Capacity(), 64);
  io.Reserve(65);
  EXPECT_EQ(io.Capacity(), 128);
  io.WriteBytes(Bytes(128, 7).data(), 128);
  EXPECT_EQ(io.Capacity(), 128);
  io.WriteByte(8);
  EXPECT_EQ(io.Capacity(), 192);
  EXPECT_EQ(io.Data()[127], 7);
  EXPECT_EQ(io.Data()[128], 8);
}

TEST(IpcBody, LongVectorsAndTextsMakeRoomOnce) {
  for (const std::size_t count : {1000U, 100000U}) {
    CIPCDataIO io;
    Write(io, std::vector<std::int32_t>(count, 1));
    EXPECT_EQ(io.Capacity(), static_cast<std::int32_t>((4 + 4 * count + 63) / 64 * 64));
    const auto before = io.Capacity();
    Write(io, std::vector<SYSTEM_DETECT_LOG_ITEM>(count));
    EXPECT_LE(io.Capacity(), static_cast<std::int32_t>(before + 4 + 8 * count + 64));
  }
}

TEST(IpcBody, ValuesLieLittleEndianWithoutPadding) {
  EXPECT_EQ(Encode(std::wstring(L"A\x4F60")), (Bytes{2, 0, 0, 0, 'A', 0, 0x60, 0x4F}));
  EXPECT_EQ(Encode(std::string("ab")), (Bytes{2, 0, 0, 0, 'a', 'b'}));
  EXPECT_EQ(Encode(std::uint16_t{60000}), (Bytes{0x60, 0xEA}));
  EXPECT_EQ(Encode(true), (Bytes{1}));
  EXPECT_EQ(Encode(std::vector<std::int32_t>{-2, 5}),
            (Bytes{2, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 5, 0, 0, 0}));
  EXPECT_EQ(Encode(std::vector<SYSTEM_DETECT_LOG_ITEM>{{4, "x"}}),
            (Bytes{1, 0, 0, 0, 4, 0, 0, 0, 1, 0, 0, 0, 'x'}));
  EXPECT_EQ(Encode(std::wstring(L"IDS_HARDWARE_DETECT")).size(), 42);
}

TEST(IpcBody, ValuesSurviveTheRoundTrip) {
  const std::vector<SYSTEM_DETECT_LOG_ITEM> items{{4, ""}, {-1, "caf\xC3\xA9"}};
  EXPECT_EQ(Decode<std::vector<SYSTEM_DETECT_LOG_ITEM>>(Encode(items)), items);
  const Bytes unpaired{3, 0, 0, 0, 0x3D, 0xD8, 'a', 0, 0x0B, 0xDD};
  EXPECT_EQ(Encode(Decode<std::wstring>(unpaired)), unpaired);
}

TEST(IpcBody, ASummaryLiesFieldByField) {
  DiagnoseSummary summary;
  summary.moduleId = 0x390000;
  summary.headline = L"H";
  summary.abnormalCount = 1;
  summary.resultText = L"R";
  summary.detailText = L"D";
  summary.items = {{L"i", L"c", L"d", DisplayState::Abnormal, L"t", true, false, -2}};
  summary.interval = 600000;
  summary.flag1 = 7;
  summary.flag2 = 8;
  const Bytes body{0,   0, 0x39, 0, 1,   0, 0,    0,    'H',  0,    1,    0,    0, 0, 1, 0, 0,   0,
                   'R', 0, 1,    0, 0,   0, 'D',  0,    1,    0,    0,    0,    1, 0, 0, 0, 'i', 0,
                   1,   0, 0,    0, 'c', 0, 1,    0,    0,    0,    'd',  0,    3, 0, 0, 0, 1,   0,
                   0,   0, 't',  0, 1,   0, 0xFE, 0xFF, 0xFF, 0xFF, 0xC0, 0x27, 9, 0, 7, 8};
  EXPECT_EQ(Encode(summary), body);
  EXPECT_EQ(Encode(Decode<DiagnoseSummary>(body)), body);
  for (std::size_t size = 0; size < body.size(); ++size)
    EXPECT_NE(FaultOf<DiagnoseSummary>({body.begin(), body.begin() + static_cast<int>(size)}), "")
        << size;
}

TEST(IpcBody, AnyByteButZeroIsTrue) {
  const bool value = Decode<bool>({2});
  EXPECT_EQ(Encode(value), Bytes{1});
}

TEST(IpcBody, ACountBeyondTheBytesLeftAllocatesNothing) {
  constexpr const char* kTooSmall = "Data for unserialize too small";
  const Bytes claims{0xFF, 0xFF, 0xFF, 0xFF, 1, 2, 3, 4, 5, 6, 7, 8};
  EXPECT_EQ(FaultOf<std::vector<std::int32_t>>(claims), kTooSmall);
  EXPECT_EQ(FaultOf<std::vector<SYSTEM_DETECT_LOG_ITEM>>(claims), kTooSmall);
  EXPECT_EQ(FaultOf<std::wstring>(claims), kTooSmall);
  EXPECT_EQ(FaultOf<std::string>(claims), kTooSmall);
  EXPECT_EQ(FaultOf<std::wstring>({1, 0, 0, 0, 'A'}), kTooSmall);
  EXPECT_EQ(FaultOf<std::vector<std::int32_t>>({2, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0}), kTooSmall);
}

TEST(IpcBody, EveryCutOfABodyIsRefused) {
  const Bytes whole = Encode(std::vector<SYSTEM_DETECT_LOG_ITEM>{{4, "abc"}, {5, "de"}});
  for (std::size_t size = 0; size < whole.size(); ++size)
    EXPECT_NE(FaultOf<std::vector<SYSTEM_DETECT_LOG_ITEM>>(
                  Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))),
              "")
        << size;
}

TEST(IpcBody, ReadingAndWritingDoNotMix) {
  CIPCDataIO writing;
  EXPECT_THROW(writing.ReadByte(), std::runtime_error);
  const Bytes body{1, 2};
  CIPCDataIO reading(body.data(), 2);
  EXPECT_THROW(reading.WriteByte(1), std::runtime_error);
  EXPECT_THROW(reading.Reserve(1), std::runtime_error);
  EXPECT_EQ(reading.ReadByte(), 1);
}

TEST(IpcBody, ABodyHasABound) {
  CIPCDataIO io;
  EXPECT_THROW(io.Reserve(0x10000000), std::runtime_error);
  EXPECT_EQ(io.Capacity(), 0);
}

}  // namespace
}  // namespace protocol
