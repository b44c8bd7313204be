#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

namespace machine {

/// What an ATA disk calls itself, whole: a SCSI description of it has less room.
struct AtaIdentity {
  std::string model;
  std::string serialNumber;
  std::string firmwareRevision;
};

/// From the ATA information page 89h of T10's SAT, which holds the disk's answer to IDENTIFY
/// DEVICE. Nothing when the bytes are no whole page or it holds none.
std::optional<AtaIdentity> ParseAtaPage(std::span<const std::byte> page);

}  // namespace machine
