#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine/live/smbios_table.h"

namespace machine {

/// What the device manager has found out about a device, by name.
using UdevProperties = std::map<std::string, std::string, std::less<>>;

/// Of a file of its database: lines "E:NAME=value" among others.
UdevProperties ParseUdevData(std::string_view text);

/// Of the device that its database has under this name: "b8:0", "+dmi:id". Empty without.
UdevProperties ReadUdevData(const std::string& device);

/// A text as it is kept for the use in file names, each byte that these cannot have as \xHH.
std::string DecodeUdevText(std::string_view text);

/// The memory slots that are kept of the firmware's tables.
std::vector<SmbiosTable::MemoryModule> MemoryModulesOf(const UdevProperties& firmware);

}  // namespace machine
