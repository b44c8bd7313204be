#pragma once

#include <cstdint>

namespace orv::sysdiagnose {

/// Hardware category: the "id" of the category list and the key of everything kept per category.
/// Values outside name no category but may stand in the list.
enum class enmHardwareID : std::int32_t {
  Audio = 0,
  Motherboard = 1,
  Bluetooth = 2,
  NetworkCard = 3,
  Processor = 4,
  Memory = 5,
  Disk = 6,
  GraphicsCard = 7,
  Display = 8,
  Battery = 9,
  Keyboard = 10,
  Fingerprint = 11,
};

inline constexpr std::int32_t kHardwareIdCount = 12;
inline constexpr enmHardwareID kNoHardware{-1};

constexpr bool IsCategory(enmHardwareID id) {
  return static_cast<std::int32_t>(id) >= 0 && static_cast<std::int32_t>(id) < kHardwareIdCount;
}

}  // namespace orv::sysdiagnose
