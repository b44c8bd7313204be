#include <algorithm>
#include <limits>

#include "platform/machine/machine_files/sections.h"

namespace machine {
namespace {

// The libraries hand these out in 64 bits, other numbers in 32.
constexpr auto kWideCalls = std::to_array<InfoCall>(
    {InfoCall::MemoryTotal, InfoCall::MemoryCapacity, InfoCall::DiskVendorCapacity,
     InfoCall::IndependentCardMemorySize, InfoCall::InternalCardMemorySize});

std::uint64_t LargestOf(const InfoCallRow& row) {
  if (row.isCount) return JsonNode::kMaxElements;
  if (row.shape == InfoShape::List) return std::numeric_limits<std::int32_t>::max();
  if (std::ranges::count(kWideCalls, row.call) > 0)
    return std::numeric_limits<std::uint64_t>::max();
  return std::numeric_limits<std::uint32_t>::max();
}

InfoValue ReadValue(const JsonNode& node, const InfoCallRow& row) {
  if (row.shape == InfoShape::Text) return node.Text();
  if (row.shape == InfoShape::Flag) return node.Flag();
  return node.Number(LargestOf(row));
}

void ReadCall(const JsonNode& node, const InfoCallRow& row, Inventory& info) {
  if (!row.indexed && row.shape != InfoShape::List) {
    info.Set(row.call, ReadValue(node, row));
    return;
  }
  std::size_t index = 0;
  for (const JsonNode& element : node.Elements())
    info.Set(row.call, ReadValue(element, row), index++);
}

}  // namespace

void ReadInfo(const JsonNode& section, Inventory& info) {
  for (const JsonNode& device : section.Members()) {
    if (!std::ranges::count(kInfoCalls, device.Key(), &InfoCallRow::className))
      device.Fail("unknown class");
    for (const JsonNode& call : device.Members()) {
      const auto row = std::ranges::find_if(kInfoCalls, [&](const InfoCallRow& candidate) {
        return candidate.className == device.Key() && candidate.method == call.Key();
      });
      if (row == kInfoCalls.end()) call.Fail("unknown call");
      ReadCall(call, *row, info);
    }
  }
}

}  // namespace machine
