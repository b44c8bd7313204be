#pragma once

#include <cstddef>
#include <span>

#include "platform/machine/live/processor_topology.h"

namespace machine {

/// Counts what GetLogicalProcessorInformationEx tells: a record for each core and for each cache,
/// however many processors share it. Ends at the first record that does not fit.
ProcessorTopology TopologyOf(std::span<const std::byte> records);

}  // namespace machine
