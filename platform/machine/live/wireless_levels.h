#pragma once

#include <map>
#include <string>
#include <string_view>

namespace machine {

/// Signal levels in dBm by interface, of the text of /proc/net/wireless: those that are connected
/// and give their level in this unit.
std::map<std::string, int> ParseWirelessLevels(std::string_view text);

}  // namespace machine
