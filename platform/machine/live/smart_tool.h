#pragma once

#include <string>

#include "platform/machine/interface/machine.h"

namespace machine {

/// Runs a SMART test (DiskHddSmart or DiskSsdSmart) by asking the installed smartctl about the disk
/// of this name. Without the tool, or its report, the disk cannot be read. Takes seconds.
TestAnswer AskSmartTool(TestCall test, const std::string& device);

}  // namespace machine
