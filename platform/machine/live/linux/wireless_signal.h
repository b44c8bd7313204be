#pragma once

#include <optional>
#include <string>

namespace machine {

/// The level in dBm at which a wireless interface hears the access point that it is connected to;
/// nothing when it is not connected, or when neither the kernel's wireless service nor
/// /proc/net/wireless says.
std::optional<int> WirelessSignal(const std::string& interface);

}  // namespace machine
