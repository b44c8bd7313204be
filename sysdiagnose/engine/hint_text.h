#pragma once

#include <cstdint>
#include <string>

namespace orv::sysdiagnose {

/// Hint codes. -5 and -8 are in the table too, but no item uses them.
inline constexpr std::int32_t kNoHint = 0;
inline constexpr std::int32_t kCheckDriverHint = -1;
inline constexpr std::int32_t kBatteryUnknownHint = -2;
inline constexpr std::int32_t kWeakSignalHint = -3;
inline constexpr std::int32_t kLowVoltageHint = -4;
inline constexpr std::int32_t kFilterKeysHint = -6;
inline constexpr std::int32_t kHotkeyHint = -7;

/// What the owner can do, in the current language; empty for a code without a message. Any thread.
std::wstring HintText(std::int32_t code);

}  // namespace orv::sysdiagnose
