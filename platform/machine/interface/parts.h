#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace machine {

/// What a machine is made of, by the numbers of the hardware categories.
enum class Part {
  Audio,
  Motherboard,
  Bluetooth,
  Network,
  Processor,
  Memory,
  Disk,
  Graphics,
  Display,
  Battery,
  Keyboard,
  Fingerprint,
  Count
};

/// As machine files and command lines name them, in the order of the numbers.
inline constexpr auto kPartNames = std::to_array<std::string_view>(
    {"audio", "motherboard", "bluetooth", "network", "processor", "memory", "disk", "graphics",
     "display", "battery", "keyboard", "fingerprint"});
static_assert(kPartNames.size() == static_cast<std::size_t>(Part::Count));

constexpr std::string_view NameOf(Part part) {
  return kPartNames[static_cast<std::size_t>(part)];
}

constexpr std::optional<Part> PartOfName(std::string_view name) {
  for (std::size_t i = 0; i < kPartNames.size(); ++i)
    if (kPartNames[i] == name) return static_cast<Part>(i);
  return std::nullopt;
}

}  // namespace machine
