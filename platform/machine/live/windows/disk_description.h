#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/machine/live/disk.h"

namespace machine {

/// What a physical drive answers.
struct DriveAnswers {
  std::vector<std::byte> descriptor;  // a STORAGE_DEVICE_DESCRIPTOR and its texts
  std::uint64_t bytes = 0;
  std::optional<bool> hasSeekPenalty;  // nothing when it does not say
};

/// The disk behind \\.\PhysicalDrive<number>. Nothing when it has no size, as a card reader without
/// a card, or names neither a model nor a serial number: then no device stands behind it.
std::optional<Disk> DescribeDisk(unsigned number, const DriveAnswers& answers);

}  // namespace machine
