#include "platform/machine/live/processor_topology.h"

#include <windows.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

#include "platform/machine/live/windows/processor_records.h"

namespace machine {
namespace {

using Record = SYSTEM_LOGICAL_PROCESSOR_INFORMATION_EX;

constexpr std::size_t kHeaderSize = offsetof(Record, Processor);

void Count(const Record& record, ProcessorTopology& topology) {
  if (record.Relationship == RelationProcessorCore) {
    ++topology.cores;
    // The threads of a core are of one group.
    topology.threads += static_cast<unsigned>(std::popcount(record.Processor.GroupMask[0].Mask));
  }
  if (record.Relationship == RelationCache) {
    const unsigned level = record.Cache.Level;
    if (level >= 1 && level <= ProcessorTopology::kCacheLevels)
      topology.cacheKilobytes[level - 1] += record.Cache.CacheSize / 1024;
  }
}

}  // namespace

ProcessorTopology TopologyOf(std::span<const std::byte> records) {
  ProcessorTopology topology;
  while (records.size() >= kHeaderSize) {
    Record record{};
    std::memcpy(&record, records.data(), kHeaderSize);
    if (record.Size < kHeaderSize || record.Size > records.size()) break;
    std::memcpy(&record, records.data(), std::min<std::size_t>(record.Size, sizeof record));
    Count(record, topology);
    records = records.subspan(record.Size);
  }
  return topology;
}

ProcessorTopology ReadProcessorTopology() {
  DWORD size = 0;
  GetLogicalProcessorInformationEx(RelationAll, nullptr, &size);
  std::vector<std::byte> records(size);
  if (GetLogicalProcessorInformationEx(RelationAll, reinterpret_cast<Record*>(records.data()),
                                       &size) == 0)
    return {};
  return TopologyOf(std::span<const std::byte>(records).first(size));
}

}  // namespace machine
