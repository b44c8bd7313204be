#include "platform/machine/live/windows/processor_records.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <vector>

namespace {

using machine::ProcessorTopology;
using machine::TopologyOf;
using Record = SYSTEM_LOGICAL_PROCESSOR_INFORMATION_EX;

class Records {
 public:
  Records& Core(KAFFINITY threads) {
    Record record{};
    record.Relationship = RelationProcessorCore;
    record.Processor.GroupCount = 1;
    record.Processor.GroupMask[0].Mask = threads;
    return Add(record, 48);
  }
  Records& Cache(BYTE level, DWORD size) {
    Record record{};
    record.Relationship = RelationCache;
    record.Cache.Level = level;
    record.Cache.CacheSize = size;
    return Add(record, 56);
  }
  Records& Package() {
    Record record{};
    record.Relationship = RelationProcessorPackage;
    record.Processor.GroupMask[0].Mask = 0xFF;
    return Add(record, 48);
  }
  Records& Empty(DWORD claimedSize) {
    Record record{};
    record.Relationship = RelationProcessorCore;
    Add(record, 8);
    std::memcpy(bytes.data() + bytes.size() - sizeof claimedSize, &claimedSize, sizeof claimedSize);
    return *this;
  }
  ProcessorTopology Read(std::size_t cutOff = 0) const {
    return TopologyOf(std::span(bytes).first(bytes.size() - cutOff));
  }

 private:
  Records& Add(Record record, DWORD size) {
    record.Size = size;
    const auto* const begin = reinterpret_cast<const std::byte*>(&record);
    bytes.insert(bytes.end(), begin, begin + size);
    return *this;
  }

  std::vector<std::byte> bytes;
};

TEST(ProcessorRecords, CountCoresTheirThreadsAndCaches) {
  const ProcessorTopology topology = Records()
                                         .Package()
                                         .Core(0b0011)
                                         .Cache(1, 48 * 1024)
                                         .Cache(1, 32 * 1024)
                                         .Cache(2, 1280 * 1024)
                                         .Core(KAFFINITY{1} << 63)
                                         .Cache(2, 2048 * 1024)
                                         .Cache(3, 24 << 20)
                                         .Cache(4, 64 << 20)
                                         .Cache(0, 1024)
                                         .Read();
  EXPECT_EQ(topology.cores, 2U);
  EXPECT_EQ(topology.threads, 3U);
  EXPECT_EQ(topology.cacheKilobytes, (std::array<std::uint64_t, 3>{80, 3328, 24576}));
}

TEST(ProcessorRecords, EndAtTheFirstThatDoesNotFit) {
  EXPECT_EQ(Records().Core(1).Core(1).Read(1).cores, 1U);
  EXPECT_EQ(Records().Core(1).Core(1).Read(44).cores, 1U);
  for (const DWORD size : {0U, 7U, 1000U, 0xFFFFFFFFU})
    EXPECT_EQ(Records().Core(1).Empty(size).Core(1).Read().cores, 1U) << size;
  // One that is too short for its fields takes none of the next one's.
  EXPECT_EQ(Records().Empty(8).Core(1).Read().threads, 1U);
}

}  // namespace
