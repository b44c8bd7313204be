#pragma once

#include <array>
#include <cstddef>

namespace orv::sysdiagnose {

/// The repairs that a failed item may offer.
enum class RepairCommand {
  None,
  WifiDriver,
  WifiProblem,
  Hotkey,
  FilterKey,
  Audio,
  Bluetooth,
  VideoCard,
  Fingerprint,
  Count
};

/// Their published names, which offers carry.
inline constexpr auto kRepairCommandNames = std::to_array<const wchar_t*>({
    L"",
    L"RepairWifiDriver",
    L"RepairWifiProblem",
    L"RepairHotkey",
    L"RepairFilterKey",
    L"RepairAudio",
    L"RepairBluetooth",
    L"RepairVideoCard",
    L"RepairFingerprint",
});
static_assert(kRepairCommandNames.size() == static_cast<std::size_t>(RepairCommand::Count));

constexpr const wchar_t* NameOf(RepairCommand command) {
  return kRepairCommandNames.at(static_cast<std::size_t>(command));
}

}  // namespace orv::sysdiagnose
