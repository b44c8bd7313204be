#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace machine {

struct HardwareName {
  std::string maker;
  std::string product;
};

/// What a hardware database in the format of pci.ids and usb.ids calls a device: lines of four
/// hexadecimal digits and a name, products behind a tab below their maker. What it does not know is
/// empty.
HardwareName FindHardwareName(std::string_view database, std::uint32_t maker,
                              std::uint32_t product);

}  // namespace machine
