#pragma once

#include <string>
#include <string_view>

#include "platform/machine/interface/calls.h"
#include "platform/machine/interface/machine.h"

namespace machine {

/// The answer of a SMART test (DiskHddSmart or DiskSsdSmart) for what `smartctl --json -a` printed
/// about the disk, see the smartmontools project. A text that is no such report, or one without the
/// drive's verdict, is a disk that cannot be read; the tool's own errors are the reason.
///
/// An attribute is out of limits when the drive says that it failed, now or earlier, or when its
/// value has come down to its threshold. Of an NVMe health log, spare blocks below their threshold
/// count as attribute E8 and a used-up endurance as E9.
///
/// A drive that says that it is failing raises the flags of its reasons: of the attributes that
/// fail now; E8 for an NVMe warning or a SCSI prediction about spare blocks, E9 for any other.
/// Where the reasons have no flag it is E9, on a rotating disk 05. The text then tells the reasons
/// in words.
TestAnswer ParseSmartReport(TestCall test, std::string_view json);

/// The answer for a disk that cannot be read, for this reason; all attributes within limits.
TestAnswer UnreadableDisk(TestCall test, const std::wstring& reason);

}  // namespace machine
