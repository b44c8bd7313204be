#pragma once

#include <istream>
#include <optional>
#include <string_view>

#include "platform/machine/inventory.h"
#include "platform/util/smbios_table.h"

namespace machine {

/// The firmware's own table; nothing when it cannot be read, as for most users.
std::optional<util::SmbiosTable> ReadFirmwareTable();

/// Product name of the system, from the table or, without one, from what the kernel shows of it.
std::wstring ReadProductName(const std::optional<util::SmbiosTable>& table);

/// Sets the answers about the base board, from the same sources.
void FillBoard(Inventory& inventory, const std::optional<util::SmbiosTable>& table);

/// Sets the answers about memory: the table's slots, or without any the size alone that the kernel
/// manages.
void FillMemory(Inventory& inventory, const std::optional<util::SmbiosTable>& table);

/// A row of /proc/meminfo ("MemTotal") in kilobytes, 0 when there is no such row.
std::uint64_t ParseMemoryRow(std::istream& meminfo, std::string_view row);
std::uint64_t ReadMemoryRow(std::string_view row);

}  // namespace machine
