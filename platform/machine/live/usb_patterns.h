#pragma once

#include <cstdint>
#include <set>
#include <string_view>
#include <utility>

namespace machine {

/// Numbers of maker and product.
using UsbNumbers = std::pair<std::uint32_t, std::uint32_t>;

/// The devices that a hardware database of the device manager names by lines such as
/// "usb:v27C6p5395*". Other lines, and patterns for more than one device, are left out.
std::set<UsbNumbers> ParseUsbPatterns(std::string_view database);

}  // namespace machine
