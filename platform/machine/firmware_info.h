#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/machine/inventory.h"
#include "platform/util/smbios_table.h"

namespace machine {

/// What the firmware says about the machine. What it does not say is empty or 0.
struct FirmwareInfo {
  bool hasTable = false;  // else only what the system itself tells of it
  std::string productName;
  util::SmbiosTable::Board board;
  std::vector<util::SmbiosTable::MemoryModule> modules;
  std::uint32_t externalClockMhz = 0;
};

/// From the firmware's table if this user may read it.
FirmwareInfo ReadFirmware();

/// From a table's structures.
FirmwareInfo FirmwareOf(std::span<const std::byte> table);

/// Sets the answers about the base board.
void FillBoard(Inventory& inventory, const FirmwareInfo& firmware);

/// Sets the answers about memory: the slots, or without any the size alone that the system manages.
void FillMemory(Inventory& inventory, const FirmwareInfo& firmware);

}  // namespace machine
