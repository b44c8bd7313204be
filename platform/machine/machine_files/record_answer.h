#pragma once

#include "platform/machine/machine_files/recorded_machine.h"

namespace machine {

/// Makes a call and keeps what it answers or throws.
RecordedAnswer RecordTest(Machine& machine, TestCall call, std::size_t ordinal, int disk);
RecordedAnswer RecordRepair(Machine& machine, RepairCall call, std::uint32_t code);

}  // namespace machine
