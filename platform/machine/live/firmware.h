#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/machine/live/smbios_table.h"

namespace machine {

/// What the firmware says about the machine. What it does not say is empty or 0.
struct FirmwareInfo {
  bool hasTable = false;  // else only what the system itself tells of it
  std::string productName;
  SmbiosTable::Board board;
  std::vector<SmbiosTable::MemoryModule> modules;
  std::uint32_t externalClockMhz = 0;
};

/// From the firmware's table if this user may read it.
FirmwareInfo ReadFirmware();

/// From a table's structures.
FirmwareInfo FirmwareOf(std::span<const std::byte> table);

}  // namespace machine
